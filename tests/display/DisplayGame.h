// A whole game on a playing surface without a window: the real board, zones, mouse and turn machine, with
// everything round them written down.
#pragma once

#include "display/boardmouse.h"
#include "tests/RecordingPort.h"

#include <functional>
#include <string>
#include <vector>

namespace tarveth::test {

// Stands in for the window the surface is shown in.
struct RecordingDisplay : DisplayPort {
    int refreshes = 0;
    std::vector<int> timerIntervals;
    std::function<void()> onYield;

    void RefreshDisplay() override { ++refreshes; }
    void SetTimerInterval(int milliseconds) override { timerIntervals.push_back(milliseconds); }
    void Yield() override { onYield(); }
};

struct DisplayGame {
    Game game;
    NetGame net;
    Settings settings;
    PiecePictures pictures;
    RecordingPort port;
    RecordingDisplay display;
    BoardDisplay board{game, settings, pictures, port, display};
    ZoneDisplay zones{game, board, port, display};
    modMAIN main{game, net, settings, Ports{port, board, port, port, port}};
    BoardMouse mouse{settings, board, zones, main};

    // A new game with the piece pictures of that size, from the folder pics; shown at their own size. A yield
    // is one tick of the timer, unless display.onYield says otherwise.
    explicit DisplayGame(int pictureSize = 32, std::int16_t boardVariant = kImperialBoard) {
        port.game = &game;
        settings.AnimateMoves = 0;
        settings.BoardVariant = boardVariant;
        display.onYield = [this] { board.AnimationTick(); };
        TakePictures(pictureSize);
        board.SetDisplaySize(pictures.SquareSize * kBoardSize, pictures.SquareSize * 3);
        main.NewGame();
    }
    DisplayGame(const DisplayGame&) = delete;
    DisplayGame& operator=(const DisplayGame&) = delete;

    // The pictures of pics/SIZE; 64 are those built in.
    void TakePictures(int size) {
        for (int kind = Master; kind <= Pawn; ++kind) {
            const auto i = static_cast<std::size_t>(kind);
            const std::string number = std::to_string(kind) + ".bmp";
            settings.BluePics[i] = std::to_string(size) + "/blue" + number;
            settings.RedPics[i] = std::to_string(size) + "/red" + number;
        }
        pictures.LoadPiecePictures(settings, {TARVETH_SOURCE_DIR "/pics/"});
    }

    // The left button pressed and let go in the middle of a square, and every pass that follows from it.
    void Click(Square square) {
        ClickWithoutPass(square);
        main.RunPasses();
    }
    void ClickWithoutPass(Square square) {
        mouse.MouseDown(MouseButton::Left, MiddleOf(square.column), MiddleOf(square.row));
        mouse.MouseUp(MouseButton::Left, MiddleOf(square.column), MiddleOf(square.row));
    }
    // The pixel in the middle of a column or row of the visible board.
    double MiddleOf(int number) const { return (number - 0.5) * board.picDisplay.ScaleWidth() / kBoardSize; }
};

} // namespace tarveth::test
