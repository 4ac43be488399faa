// Bringing a picture to another size, for presenting the board in a window of any size.
#pragma once

#include "display/pixels.h"

namespace tarveth {

// Fills the whole of `to` with the whole of `from`. Each pixel takes the mean of the area of the source that
// it covers, so that whole multiples stay crisp and everything else keeps sharp edges without steps.
void StretchPixels(const PixelBuffer& from, PixelBuffer& to);

} // namespace tarveth
