// The animation of a move: at each tick of the timer the piece moves by a quarter of a square.
#include "display/board.h"

#include <algorithm>

namespace tarveth {

namespace {

constexpr int kTickMilliseconds = 10;
constexpr Currency kQuarter = Currency::FromRaw(Currency::kScale / 4);

Currency StepTowards(int target, Currency from) {
    const int difference = target - from.ToInt16();
    return difference >= 1 ? kQuarter : difference < 0 ? -kQuarter : Currency{};
}

} // namespace

void BoardDisplay::AnimateMove(int index, Square to) {
    PieceRecord& piece = game_.Piece(index);
    game_.Animating = true;
    game_.AnimatedPiece = static_cast<std::int16_t>(index);
    piece.TargetX = static_cast<std::int16_t>(to.column);
    piece.TargetY = static_cast<std::int16_t>(to.row);
    piece.StepX = StepTowards(to.column, piece.X);
    piece.StepY = StepTowards(to.row, piece.Y);
    RedrawBoard();
    piece.X += piece.StepX;
    piece.Y += piece.StepY;
    SizeScratch(piece);
    SaveBackground(piece);
    port_.SetTimerInterval(kTickMilliseconds);
    while (game_.AnimatedPiece != 0)
        port_.Yield();
    game_.Animating = false;
}

// Makes picScratch as large as a square, or as the piece's picture where that is larger.
void BoardDisplay::SizeScratch(const PieceRecord& piece) {
    const PixelBuffer* picture = pictures_.Of(piece.Side, piece.Kind);
    const int width = picture == nullptr ? 0 : picture->Width();
    const int height = picture == nullptr ? 0 : picture->Height();
    picScratch.SetSize(std::max(SquareSize(), width) * kTwipsPerPixelX,
                       std::max(SquareSize(), height) * kTwipsPerPixelY);
}

void BoardDisplay::FinishAnimation() {
    while (game_.AnimatedPiece != 0)
        AnimationTick();
}

void BoardDisplay::AnimationTick() {
    if (game_.AnimatedPiece == 0) // this tick was queued before the piece arrived
        return;
    PieceRecord& piece = game_.Piece(game_.AnimatedPiece);
    picBoard.Pixels.CopyFrom(picScratch.Pixels, PixelOf(piece.X), PixelOf(piece.Y));
    piece.X += piece.StepX;
    piece.Y += piece.StepY;
    SaveBackground(piece);
    if (piece.X == piece.TargetX)
        piece.StepX = 0;
    if (piece.Y == piece.TargetY)
        piece.StepY = 0;
    DrawPieceAt(game_.AnimatedPiece, static_cast<std::int16_t>(PixelOf(piece.X)),
                static_cast<std::int16_t>(PixelOf(piece.Y)));
    if (piece.StepX == 0 && piece.StepY == 0) {
        port_.SetTimerInterval(0);
        game_.AnimatedPiece = 0;
    }
    PresentBoard();
}

void BoardDisplay::SaveBackground(const PieceRecord& piece) {
    picScratch.Pixels.CopyFrom(picBoard.Pixels, -PixelOf(piece.X), -PixelOf(piece.Y));
}

} // namespace tarveth
