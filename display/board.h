// The playing surface: the board and the jail drawn from the game into off-screen buffers, those brought to
// the size of the window, and the gliding piece.
#pragma once

#include "display/picturebox.h"
#include "display/piecepictures.h"
#include "engine/ports.h"
#include "engine/rules/Game.h"
#include "storage/settings.h"

namespace tarveth {

// What the surface asks of the window it is shown in.
struct DisplayPort {
    virtual ~DisplayPort() = default;
    // Shows picDisplay, picDisplayJail and Shape1 as they now are. Does not block.
    virtual void RefreshDisplay() = 0;
    // Timer1: AnimationTick is due every `milliseconds`; 0 stops it.
    virtual void SetTimerInterval(int milliseconds) = 0;
    // Waits for events and handles them; timer ticks are among them.
    virtual void Yield() = 0;
};

// The selection marker is two bands, one of each tone: against any square colour one of them has a contrast
// of at least 4.5 : 1.
inline constexpr Pixel kMarkerDark = Rgb(0, 0, 0);
inline constexpr Pixel kMarkerLight = Rgb(255, 255, 255);
inline constexpr Pixel kMarkerAccent = Rgb(255, 140, 0);

// A shape in the pixels of picDisplay.
struct MarkerShape {
    bool Visible = false;
    int Left = 0, Top = 0, Width = 0, Height = 0;
};

class BoardDisplay : public BoardPort {
public:
    // All of these outlive the object.
    BoardDisplay(Game& game, const Settings& settings, PiecePictures& pictures, PersonPort& person,
                 DisplayPort& port);

    PictureBox picBoard;       // 8 by 8 squares of the pictures' size
    PictureBox picJail;        // three rows of 8
    PictureBox picScratch;     // what the moving piece covers
    PictureBox picDisplay;     // picBoard as the window shows it
    PictureBox picDisplayJail; // picJail as the window shows it
    MarkerShape Shape1;        // round the square of the piece last picked

    // Sets the size of the visible board and jail in pixels and presents them anew.
    void SetDisplaySize(int boardEdge, int jailHeight);
    // Paints picBoard and picJail from the game, and presents them.
    void RedrawBoard() override;
    // Stretches picBoard and picJail onto what the window shows, and moves Shape1.
    void PresentBoard();
    // Draws one piece on picBoard, in the picture of its side and kind; a kind outside 1 to 3 draws nothing.
    void DrawPieceAt(int pieceIndex, std::int16_t x, std::int16_t y);
    void ShowMarker(bool visible);

    void AnimateMove(int index, Square to) override;
    void FinishAnimation() override;
    // One step of the moving piece; Timer1 runs it.
    void AnimationTick();

private:
    void PaintSquares();
    void DrawJail();
    void DrawPieces();
    void MoveMarker();
    void SizeScratch(const PieceRecord& piece);
    void SaveBackground(const PieceRecord& piece);
    int SquareSize() const { return pictures_.SquareSize; }
    int PixelOf(
        Currency squareNumber) const; // the left or top pixel of a column or row, of a fraction of one too

    Game& game_;
    const Settings& settings_;
    PiecePictures& pictures_;
    PersonPort& person_;
    DisplayPort& port_;
};

} // namespace tarveth
