// Converts a pointer position on the visible board to a square.
#pragma once

#include "engine/rules/modPieces.h"

namespace tarveth {

// Gives the square under a pointer at (x, y), in pixels, on a visible board of the given size; {0, 0} outside
// the 8 by 8 squares. A square's edge is an eighth of the board's, rounded to whole pixels.
Square SquareAt(double x, double y, double boardWidth, double boardHeight);

} // namespace tarveth
