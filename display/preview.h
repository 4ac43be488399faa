// Small previews of piece pictures, for dialogs.
#pragma once

#include "display/pixels.h"

#include <array>

namespace tarveth {

// Stretches a picture to fit a square of `edge` pixels (at least 1), centred and with its
// proportions kept. `ground` fills the rest of the square, the transparent pixels, and the whole square for
// an empty picture.
PixelBuffer Preview(const PixelBuffer& picture, int edge, Pixel ground);

// Draws all six pictures on "black" and "white" squares of `edge` pixels: Blue's above Red's, Master to Pawn.
// Both arrays are indexed by PieceKind, 1 to 3.
PixelBuffer PieceBoard(const std::array<PixelBuffer, 4>& blue, const std::array<PixelBuffer, 4>& red,
                       int edge, Pixel black = Rgb(0, 0, 0), Pixel white = Rgb(255, 255, 255));

} // namespace tarveth
