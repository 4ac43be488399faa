// A drawing surface: pixels with a place and a size in twips.
#pragma once

#include "display/pixels.h"

namespace tarveth {

inline constexpr int kTwipsPerPixelX = 15; // 1440 twips an inch at 96 dots an inch
inline constexpr int kTwipsPerPixelY = 15;

class PictureBox {
public:
    int Left = 0; // twips
    int Top = 0;  // twips
    Pixel BackColor = Rgb(192, 192, 192);

    int Width() const { return width_; }   // twips
    int Height() const { return height_; } // twips

    // Sets the size in twips. If the size in pixels changes, the surface is cleared.
    void SetSize(int width, int height) {
        width_ = width;
        height_ = height;
        const int pixelWidth = width / kTwipsPerPixelX;
        const int pixelHeight = height / kTwipsPerPixelY;
        if (pixelWidth != Pixels.Width() || pixelHeight != Pixels.Height())
            Pixels.Resize(pixelWidth, pixelHeight, BackColor);
    }
    // Fills the surface with its background colour.
    void Clear() { Pixels.Fill(BackColor); }

    PixelBuffer Pixels;

private:
    int width_ = 0;
    int height_ = 0;
};

} // namespace tarveth
