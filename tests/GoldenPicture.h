// Compares pictures with the golden pictures in tests/golden, byte by byte.
#pragma once

#include "display/pixels.h"

#include <string>

namespace tarveth::test {

// Gives the picture as an uncompressed 24-bit BMP file. The same pixels give the same bytes on every system.
std::string WriteBitmap(const PixelBuffer& picture);

// Compares `picture` with tests/golden/NAME.bmp; gives an empty text if they are equal. Otherwise writes the
// picture as NAME.bmp and NAME-difference.bmp (red where they differ, over the faint golden picture) to
// golden-failures in the build folder, and gives a sentence about it. tools/accept-golden makes the picture
// the new golden one.
std::string CompareWithGolden(const std::string& name, const PixelBuffer& picture);

} // namespace tarveth::test
