// Draws dots, crosses, arrows and letters on a diagram, each with a rim that makes it visible on any
// background.
#pragma once

#include "display/pixels.h"

namespace tarveth::diagram {

// A point in pixels.
struct Spot {
    double x = 0;
    double y = 0;
};

// Draw the marks for "may go here" and "may not go here" in the middle of a square of 64 pixels.
void DrawDot(PixelBuffer& pixels, Spot middle);
void DrawCross(PixelBuffer& pixels, Spot middle);

void DrawArrow(PixelBuffer& pixels, Spot from, Spot to);

// Draws one of the letters A to H or the digits 1 to 8, about 20 pixels high.
void DrawLetter(PixelBuffer& pixels, Spot middle, char letter);

} // namespace tarveth::diagram
