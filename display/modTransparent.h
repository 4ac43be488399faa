// Drawing a picture so that the board shows through where it has the key colour.
#pragma once

#include "display/picturebox.h"
#include "engine/ports.h"

#include <cstdint>

namespace tarveth {

// Draws `source` with its top left at pixel (x, y) of `dest`, leaving alone every pixel where the source has
// `keyColour`; clips at the edges. A dest that is no picture box (null) gives a message box and draws
// nothing. Neither the source nor the scale mode of dest is changed.
void DrawTransparent(PictureBox* dest, const PixelBuffer& source, std::int16_t x, std::int16_t y,
                     Pixel keyColour, PersonPort& person);

} // namespace tarveth
