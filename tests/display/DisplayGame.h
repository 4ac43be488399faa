// A game with the real board, zones, mouse and turn machine, but without a window: the calls to it are
// recorded.
#pragma once

#include "display/boardmouse.h"
#include "tests/RecordingPort.h"

#include <functional>
#include <string>
#include <vector>

namespace tarveth::test {

// Implements the window's port and counts the calls.
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

    // Starts a new game with the piece pictures of that size from the folder pics, shown unscaled. A yield
    // makes one tick of the timer, unless display.onYield is set.
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

    // Loads the pictures of pics/SIZE; for 64 the built-in ones.
    void TakePictures(int size) {
        for (int kind = Master; kind <= Pawn; ++kind) {
            const auto i = static_cast<std::size_t>(kind);
            const std::string number = std::to_string(kind) + ".bmp";
            settings.BluePics[i] = std::to_string(size) + "/blue" + number;
            settings.RedPics[i] = std::to_string(size) + "/red" + number;
        }
        pictures.LoadPiecePictures(settings, {TARVETH_SOURCE_DIR "/pics/"});
    }

    // Clicks with the left button in the middle of a square and runs all passes that follow.
    void Click(Square square) {
        ClickWithoutPass(square);
        main.RunPasses();
    }
    void ClickWithoutPass(Square square) {
        mouse.MouseDown(MouseButton::Left, MiddleOf(square.column), MiddleOf(square.row));
        mouse.MouseUp(MouseButton::Left, MiddleOf(square.column), MiddleOf(square.row));
    }
    // Gives the pixel in the middle of a column or row of the visible board.
    double MiddleOf(int number) const {
        return (number - 0.5) * board.picDisplay.Pixels.Width() / kBoardSize;
    }
};

} // namespace tarveth::test
