// Reads BMP files. The toolkit has a reader too, but this one needs no window, gives the same pixels on every
// system, and checks the sizes that a file states before it allocates memory for them.
#pragma once

#include "display/pixels.h"

#include <cstdint>
#include <span>
#include <stdexcept>

namespace tarveth {

// The least and the greatest edge of a piece picture, and so of a square of the board, in pixels.
inline constexpr int kSmallestPicture = 8;
inline constexpr int kLargestPicture = 512;

// The reason why bytes are no usable picture. what() completes a sentence that begins with "The picture …".
struct BitmapError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Decodes an uncompressed BMP of 1, 4, 8, 16, 24 or 32 bits a pixel, those of 16 and 32 with any masks,
// either way up, of kSmallestPicture to kLargestPicture pixels an edge. Throws BitmapError for anything else.
PixelBuffer ReadBitmap(std::span<const std::uint8_t> bytes);

} // namespace tarveth
