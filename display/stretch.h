// Stretches pictures, to show the board in a window of any size.
#pragma once

#include "display/pixels.h"

namespace tarveth {

// Stretches `from` to the size of `to` by area averaging: each target pixel is the mean of the area of the
// source that it covers. Whole multiples stay crisp, and at other sizes edges show no steps.
void StretchPixels(const PixelBuffer& from, PixelBuffer& to);

} // namespace tarveth
