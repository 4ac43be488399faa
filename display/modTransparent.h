// Draws pictures with a transparent colour.
#pragma once

#include "display/picturebox.h"
#include "engine/ports.h"

#include <cstdint>

namespace tarveth {

// Draws `source` with its top left corner at pixel (x, y) of `dest`, clipped at the edges. Pixels of the
// source that have `keyColour` are transparent. A null `dest`, which stands for an object that is no picture
// box, gives a message box, and nothing is drawn.
void DrawTransparent(PictureBox* dest, const PixelBuffer& source, std::int16_t x, std::int16_t y,
                     Pixel keyColour, PersonPort& person);

} // namespace tarveth
