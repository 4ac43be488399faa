#include "display/board.h"

#include "display/layout.h"
#include "display/modTransparent.h"
#include "display/stretch.h"

#include <cmath>

namespace tarveth {

namespace {

constexpr int kGapBelowBoard = 120; // twips

} // namespace

Pixel ColourOf(const BoardColor& colour) {
    return Rgb(colour.R, colour.G, colour.B);
}

BoardDisplay::BoardDisplay(Game& game, const Settings& settings, PiecePictures& pictures, PersonPort& person,
                           DisplayPort& port)
    : game_(game), settings_(settings), pictures_(pictures), person_(person), port_(port) {}

void BoardDisplay::SetDisplaySize(int boardEdge, int jailHeight, std::optional<int> jailWidth) {
    const int width = jailWidth.value_or(boardEdge);
    if (boardEdge == picDisplay.Pixels.Width() && width == picDisplayJail.Pixels.Width() &&
        jailHeight == picDisplayJail.Pixels.Height())
        return;
    picDisplay.SetSize(boardEdge * kTwipsPerPixelX, boardEdge * kTwipsPerPixelY);
    picDisplayJail.SetSize(width * kTwipsPerPixelX, jailHeight * kTwipsPerPixelY);
    PresentBoard();
}

void BoardDisplay::RedrawBoard() {
    const int s = SquareSize();
    picBoard.SetSize(s * kTwipsPerPixelX * kBoardSize, s * kTwipsPerPixelY * kBoardSize);
    PaintSquares();
    picBoard.Pixels.At(1, 1) = kKeyGreen; // a fixed mark in the corner of the board's picture

    picJail.Left = picBoard.Left;
    picJail.Top = picBoard.Top + picBoard.Height() + kGapBelowBoard;
    // The height is computed with the horizontal factor on purpose: saved window layouts depend on it.
    picJail.SetSize(picBoard.Width(), s * kTwipsPerPixelX * kJailRows);
    picJail.Clear();
    DrawJail();
    DrawPieces();
    PresentBoard();
}

void BoardDisplay::PaintSquares() {
    const int s = SquareSize();
    const Pixel black = ColourOf(settings_.BoardBlack);
    const Pixel white = ColourOf(settings_.BoardWhite);
    for (int row = 1; row <= kBoardSize; ++row)
        for (int column = 1; column <= kBoardSize; ++column)
            picBoard.Pixels.FillBox((column - 1) * s, (row - 1) * s, s, s,
                                    (row + column) % 2 == 0 ? black : white);
}

void BoardDisplay::DrawJail() {
    const int s = SquareSize();
    for (int slot = 1; slot <= game_.JailCount(); ++slot) {
        const int k = slot - 1;
        const PieceRecord& piece = game_.Jailed(slot);
        if (const PixelBuffer* picture = pictures_.Of(piece.Side, piece.Kind))
            DrawTransparent(&picJail, *picture, static_cast<std::int16_t>(k % kBoardSize * s),
                            static_cast<std::int16_t>(k / kBoardSize * s), kKeyGreen, person_);
    }
}

void BoardDisplay::DrawPieces() {
    for (int i = 1; i <= game_.PieceCount(); ++i) {
        const PieceRecord& piece = game_.Piece(i);
        if (i != game_.AnimatedPiece && !piece.InJail())
            DrawPieceAt(i, static_cast<std::int16_t>(PixelOf(piece.X)),
                        static_cast<std::int16_t>(PixelOf(piece.Y)));
    }
}

void BoardDisplay::DrawPieceAt(int pieceIndex, std::int16_t x, std::int16_t y) {
    const PieceRecord& piece = game_.Piece(pieceIndex);
    if (const PixelBuffer* picture = pictures_.Of(piece.Side, piece.Kind))
        DrawTransparent(&picBoard, *picture, x, y, kKeyGreen, person_);
}

int BoardDisplay::PixelOf(Currency squareNumber) const {
    return static_cast<int>(std::nearbyint((squareNumber - 1).ToDouble() * SquareSize()));
}

void BoardDisplay::PresentBoard() {
    StretchPixels(picBoard.Pixels, picDisplay.Pixels);
    StretchPixels(picJail.Pixels, picDisplayJail.Pixels);
    ZonePainted = false;
    MoveMarker();
    port_.RefreshDisplay();
}

void BoardDisplay::ShowMarker(bool visible) {
    Shape1.Visible = visible;
    MoveMarker();
    port_.RefreshDisplay();
}

void BoardDisplay::MoveMarker() {
    Shape1.Width = picDisplay.Pixels.Width() / kBoardSize;
    Shape1.Height = picDisplay.Pixels.Height() / kBoardSize;
    Shape1.Left = (game_.SelX - 1) * Shape1.Width;
    Shape1.Top = (game_.SelY - 1) * Shape1.Height;
}

} // namespace tarveth
