// From a pointer position on the visible board to a square.
#pragma once

#include "engine/rules/modPieces.h"

namespace tarveth {

// The square under a pointer at (x, y), in the pixels of a visible board of the given size; {0, 0} outside
// the 8 by 8 squares, which are the board's size ÷ 8 rounded to whole pixels.
Square SquareAt(double x, double y, double boardWidth, double boardHeight);

} // namespace tarveth
