// Reading BMP files. The toolkit could, but the core draws the same pictures with no window, in tests and on
// both systems, and a file's claims must be checked before they cost memory.
#pragma once

#include "display/pixels.h"

#include <cstdint>
#include <span>
#include <stdexcept>

namespace tarveth {

// A picture's edges in pixels: what a piece picture, and so a square of the board, may measure.
inline constexpr int kSmallestPicture = 8;
inline constexpr int kLargestPicture = 512;

// Why bytes are not a usable picture; what() is the rest of the sentence "The picture … ".
struct BitmapError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Decodes an uncompressed BMP of 1, 4, 8, 16, 24 or 32 bits a pixel, those of 16 and 32 with any masks,
// either way up, of kSmallestPicture to kLargestPicture pixels an edge. Throws BitmapError for anything else.
PixelBuffer ReadBitmap(std::span<const std::uint8_t> bytes);

} // namespace tarveth
