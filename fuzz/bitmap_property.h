// The property of picture files with any bytes: the file is refused, or it gives a picture within the limits
// that can be written and read back pixel by pixel. Used by the fuzz target and by the test that replays its
// corpus.
#pragma once

#include "display/bitmap.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarveth {

inline void PutNumber(std::vector<std::uint8_t>& bytes, std::uint32_t number, int size) {
    for (int i = 0; i < size; ++i)
        bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
}

// Gives the picture as a BMP file of 32 bits a pixel, with the lowest line first.
inline std::vector<std::uint8_t> BitmapBytes(const PixelBuffer& picture) {
    constexpr std::uint32_t kHeaders = 54;
    std::vector<std::uint8_t> bytes{'B', 'M'};
    for (const std::uint32_t number : {0U, 0U, kHeaders, 40U, static_cast<std::uint32_t>(picture.Width()),
                                       static_cast<std::uint32_t>(picture.Height())})
        PutNumber(bytes, number, 4);
    PutNumber(bytes, 1, 2);
    PutNumber(bytes, 32, 2);
    bytes.resize(kHeaders);
    for (int y = picture.Height() - 1; y >= 0; --y)
        for (int x = 0; x < picture.Width(); ++x) {
            const Pixel pixel = picture.Row(y)[x];
            for (const int channel : {BlueOf(pixel), GreenOf(pixel), RedOf(pixel), 0})
                bytes.push_back(static_cast<std::uint8_t>(channel));
        }
    return bytes;
}

// Gives a sentence about what is wrong with a picture file of these bytes; empty if the property holds.
inline std::string BitmapFault(std::span<const std::uint8_t> bytes) {
    PixelBuffer picture;
    try {
        picture = ReadBitmap(bytes);
    } catch (const BitmapError&) {
        return "";
    }
    const auto fits = [](int edge) { return edge >= kSmallestPicture && edge <= kLargestPicture; };
    if (!fits(picture.Width()) || !fits(picture.Height()))
        return "a picture of an edge that is not allowed";
    return ReadBitmap(BitmapBytes(picture)) == picture ? "" : "the picture did not read back";
}

} // namespace tarveth
