// A diagram as pixels: the game's own board and pieces, with marks on it.
#pragma once

#include "display/pixels.h"
#include "tools/diagram/diagram.h"

namespace tarveth::diagram {

// Squares are 64 pixels wide, the built-in pictures' size.
PixelBuffer PictureOf(const Diagram& diagram);

} // namespace tarveth::diagram
