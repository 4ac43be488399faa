// Piece pictures in small, for showing which ones are chosen.
#pragma once

#include "display/pixels.h"

#include <array>

namespace tarveth {

// The picture brought to a square of `edge` pixels (at least 1), in the middle of it and with its proportions
// kept; `ground` is seen round it and where the picture has the key colour.
PixelBuffer Preview(const PixelBuffer& picture, int edge, Pixel ground);

// All six on a corner of a board of black and white squares of `edge` pixels: Blue's above Red's, Master to
// Pawn. Both by PieceKind, 1 to 3.
PixelBuffer PieceBoard(const std::array<PixelBuffer, 4>& blue, const std::array<PixelBuffer, 4>& red,
                       int edge);

} // namespace tarveth
