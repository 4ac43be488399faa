// Pictures as PNG files hold them.
#pragma once

#include <string>

namespace tarveth {

class PixelBuffer;

// Gives the bytes of a PNG file with these pixels, of which there is at least one.
std::string PngBytes(const PixelBuffer& pixels);

} // namespace tarveth
