// A diagram as pixels: the game's own board and pieces, with marks on it.
#pragma once

#include "display/pixels.h"
#include "tools/diagram/diagram.h"

namespace tarveth::diagram {

// A whole board has squares of 40 pixels, a part of one those of 64, the built-in pictures' size.
PixelBuffer PictureOf(const Diagram& diagram);

} // namespace tarveth::diagram
