// The pictures of the board and the jail: drawn from the game into off-screen buffers, stretched to the size
// of the window, and animated while a piece moves.
#pragma once

#include "display/picturebox.h"
#include "display/piecepictures.h"
#include "engine/ports.h"
#include "engine/rules/Game.h"
#include "storage/settings.h"

#include <optional>

namespace tarveth {

// What BoardDisplay asks of the window that shows it.
struct DisplayPort {
    virtual ~DisplayPort() = default;
    // Repaints picDisplay, picDisplayJail and Shape1. Does not block.
    virtual void RefreshDisplay() = 0;
    // Makes Timer1 call AnimationTick every `milliseconds`; 0 stops it.
    virtual void SetTimerInterval(int milliseconds) = 0;
    // Waits for events, timer ticks among them, and handles them.
    virtual void Yield() = 0;
};

// The colours of the selection marker. Its dark and its light band make it visible on squares of any colour:
// one of them has a contrast of at least 4.5 : 1.
inline constexpr Pixel kMarkerDark = Rgb(0, 0, 0);
inline constexpr Pixel kMarkerLight = Rgb(255, 255, 255);
inline constexpr Pixel kMarkerAccent = Rgb(255, 140, 0);

// The selection marker's box, in pixels of picDisplay.
struct MarkerShape {
    bool Visible = false;
    int Left = 0, Top = 0, Width = 0, Height = 0;
};

// Gives the colour of a kind of square.
Pixel ColourOf(const BoardColor& colour);

class BoardDisplay : public BoardPort {
public:
    // All of these outlive the object.
    BoardDisplay(Game& game, const Settings& settings, PiecePictures& pictures, PersonPort& person,
                 DisplayPort& port);

    PictureBox picBoard;       // 8 by 8 squares, each of the pictures' size
    PictureBox picJail;        // kJailRows rows of 8 squares
    PictureBox picScratch;     // the part of picBoard that the moving piece covers
    PictureBox picDisplay;     // picBoard, stretched to the size that the window shows
    PictureBox picDisplayJail; // picJail, stretched to the size that the window shows
    MarkerShape Shape1;        // the selection marker, round the square of the piece last picked
    bool ZonePainted = false;  // zones are painted over picDisplay, until it is presented again

    // Sets the size of the visible board and jail in pixels and presents them again. Without a width the jail
    // is as wide as the board.
    void SetDisplaySize(int boardEdge, int jailHeight, std::optional<int> jailWidth = {});
    // Paints picBoard and picJail from the game, and presents them.
    void RedrawBoard() override;
    // Stretches picBoard and picJail to picDisplay and picDisplayJail, moves Shape1 and has the window
    // repainted.
    void PresentBoard();
    // Draws one piece on picBoard with the picture of its side and kind. Draws nothing for an unknown kind.
    void DrawPieceAt(int pieceIndex, std::int16_t x, std::int16_t y);
    void ShowMarker(bool visible);

    void AnimateMove(int index, Square to) override;
    void FinishAnimation() override;
    // Moves the moving piece by one step. Is called by Timer1.
    void AnimationTick();

private:
    void PaintSquares();
    void DrawJail();
    void DrawPieces();
    void MoveMarker();
    void SizeScratch(const PieceRecord& piece);
    void SaveBackground(const PieceRecord& piece);
    int SquareSize() const { return pictures_.SquareSize; }
    int
    PixelOf(Currency squareNumber) const; // the left or top pixel of a column or row, which may be a fraction

    Game& game_;
    const Settings& settings_;
    PiecePictures& pictures_;
    PersonPort& person_;
    DisplayPort& port_;
};

} // namespace tarveth
