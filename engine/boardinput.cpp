#include "engine/boardinput.h"

#include <cmath>

namespace tarveth {

namespace {

// Rounds half to even, as all conversions of positions to whole numbers do.
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

} // namespace tarveth
