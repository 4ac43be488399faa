// Squares from the mouse and the keyboard to the main loop.
#include "engine/boardinput.h"

#include "engine/modMAIN.h"

#include <cmath>

namespace tarveth {

namespace {

// Half to even, as every conversion of a position to a whole number.
int RoundToWhole(double value) {
    return static_cast<int>(std::nearbyint(value));
}

} // namespace

Square SquareAt(double x, double y, double boardWidth, double boardHeight) {
    const int w = RoundToWhole(boardWidth / kBoardSize);
    const int h = RoundToWhole(boardHeight / kBoardSize);
    const int wholeX = RoundToWhole(x);
    const int wholeY = RoundToWhole(y);
    if (w <= 0 || h <= 0 || wholeX < 0 || wholeY < 0)
        return {};
    const Square square{wholeX / w + 1, wholeY / h + 1};
    return square.OnBoard() ? square : Square{};
}

void modMAIN::DepositSquare(Square square) {
    if (game_.GameState == kGameOver || game_.Animating || busy_)
        return; // a pass is still busy with an animation or the question which piece comes back
    if (net_.GameInProgress() && !net_.IsLocalSide(game_.Turn)) {
        ShowStatus("Not your turn.");
        return;
    }
    if (net_.RemoteMove)
        return; // his square comes first
    if (!square.OnBoard())
        square = {};
    game_.ClickX = static_cast<std::int16_t>(square.column);
    game_.ClickY = static_cast<std::int16_t>(square.row);
    if (game_.GameState == kReturnPiece && !IsSquareFree()) {
        ShowStatus(
            "That position is not free. Please click on the position where you'd like to return your " +
            game_.ReturnName + " to play.");
        game_.ClearClick();
    }
}

bool modMAIN::IsSquareFree() const {
    return PieceOn(game_, game_.PendingSquare()) == 0;
}

} // namespace tarveth
