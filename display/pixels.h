// Pixels in memory, of which all pictures, board buffers and sprites consist.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarveth {

// A colour as 0x00BBGGRR: red in the low byte, the top byte 0.
using Pixel = std::uint32_t;

// Makes a colour from its components, which are clamped to 0 to 255.
constexpr Pixel Rgb(int red, int green, int blue) {
    const auto clamp = [](int value) {
        return static_cast<Pixel>(value < 0 ? 0 : value > 255 ? 255 : value);
    };
    return clamp(red) | clamp(green) << 8 | clamp(blue) << 16;
}

constexpr int RedOf(Pixel colour) {
    return static_cast<int>(colour & 0xFF);
}
constexpr int GreenOf(Pixel colour) {
    return static_cast<int>(colour >> 8 & 0xFF);
}
constexpr int BlueOf(Pixel colour) {
    return static_cast<int>(colour >> 16 & 0xFF);
}

// The transparent colour of piece pictures.
inline constexpr Pixel kKeyGreen = Rgb(0, 255, 0);

// A rectangle of pixels, row by row from the top left.
class PixelBuffer {
public:
    PixelBuffer() = default;
    PixelBuffer(int width, int height, Pixel colour = 0) { Resize(width, height, colour); }

    int Width() const { return width_; }
    int Height() const { return height_; }
    bool Empty() const { return pixels_.empty(); }

    // Sets the size, at least 0 by 0, and fills all pixels with the colour.
    void Resize(int width, int height, Pixel colour = 0);
    void Fill(Pixel colour);
    // Fills the part of the box that lies inside the buffer.
    void FillBox(int left, int top, int width, int height, Pixel colour);
    // Copies `source` with its top left corner to (left, top), clipped at the edges of the buffer.
    void CopyFrom(const PixelBuffer& source, int left, int top);

    Pixel* Row(int y) { return pixels_.data() + Offset(y); }
    const Pixel* Row(int y) const { return pixels_.data() + Offset(y); }
    Pixel& At(int x, int y) { return Row(y)[x]; }
    Pixel At(int x, int y) const { return Row(y)[x]; }
    std::size_t ByteCount() const { return pixels_.size() * sizeof(Pixel); }

    friend bool operator==(const PixelBuffer&, const PixelBuffer&) = default;

private:
    std::size_t Offset(int y) const { return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_); }

    int width_ = 0;
    int height_ = 0;
    std::vector<Pixel> pixels_;
};

// Gives the part of a span of `length` pixels that begins at `start` which lies between 0 and `limit`.
struct Clip {
    int first = 0; // offset into the span
    int count = 0;
};
Clip ClipSpan(int start, int length, int limit);

} // namespace tarveth
