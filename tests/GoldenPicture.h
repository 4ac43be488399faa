// Comparing what was drawn with the pictures under tests/golden, byte by byte.
#pragma once

#include "display/pixels.h"

#include <string>

namespace tarveth::test {

// The picture as an uncompressed 24-bit BMP file. The same pixels give the same bytes on every system.
std::string WriteBitmap(const PixelBuffer& picture);

// Empty when `picture` is tests/golden/NAME.bmp to the byte. Otherwise NAME.bmp as it was drawn and
// NAME-difference.bmp (red where they differ, over the faint golden picture) are written into the build
// folder's golden-failures, and the result says so. tools/accept-golden takes what was drawn as the new
// golden picture.
std::string CompareWithGolden(const std::string& name, const PixelBuffer& picture);

} // namespace tarveth::test
