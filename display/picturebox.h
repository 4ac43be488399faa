// A drawing surface: pixels with a place, a size in twips and a scale mode.
#pragma once

#include "display/pixels.h"

#include <cstdint>

namespace tarveth {

inline constexpr int kTwipsPerPixelX = 15; // 1440 twips an inch at 96 dots an inch
inline constexpr int kTwipsPerPixelY = 15;

enum class ScaleMode : std::int16_t { Twips = 1, Pixels = 3 };

class PictureBox {
public:
    int Left = 0; // twips
    int Top = 0;  // twips
    tarveth::ScaleMode ScaleMode = tarveth::ScaleMode::Pixels;
    Pixel BackColor = Rgb(192, 192, 192);

    int Width() const { return width_; }   // twips
    int Height() const { return height_; } // twips
    // The inner size in units of the scale mode.
    double ScaleWidth() const { return ScaleMode == tarveth::ScaleMode::Pixels ? Pixels.Width() : width_; }
    double ScaleHeight() const { return ScaleMode == tarveth::ScaleMode::Pixels ? Pixels.Height() : height_; }

    // Sets the size in twips. What was drawn is lost if the size in pixels changes.
    void SetSize(int width, int height) {
        width_ = width;
        height_ = height;
        const int pixelWidth = width / kTwipsPerPixelX;
        const int pixelHeight = height / kTwipsPerPixelY;
        if (pixelWidth != Pixels.Width() || pixelHeight != Pixels.Height())
            Pixels.Resize(pixelWidth, pixelHeight, BackColor);
    }
    // Paints the whole surface in its background colour.
    void Clear() { Pixels.Fill(BackColor); }

    PixelBuffer Pixels;

private:
    int width_ = 0;
    int height_ = 0;
};

} // namespace tarveth
