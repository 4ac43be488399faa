// Draws a diagram with the game's own board and pieces, and marks on it.
#pragma once

#include "display/pixels.h"
#include "tools/diagram/diagram.h"

namespace tarveth::diagram {

// Gives the picture. A whole board has squares of 40 pixels; a part of a board has squares of 64 pixels, the
// size of the built-in pictures.
PixelBuffer PictureOf(const Diagram& diagram);

} // namespace tarveth::diagram
