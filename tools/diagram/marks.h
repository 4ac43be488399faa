// Dots, crosses, arrows and letters drawn on a diagram, each with a rim that shows on every ground.
#pragma once

#include "display/pixels.h"

namespace tarveth::diagram {

// A point in pixels.
struct Spot {
    double x = 0;
    double y = 0;
};

// "May go here" and "may not go here", in the middle of a square of 64 pixels.
void DrawDot(PixelBuffer& pixels, Spot middle);
void DrawCross(PixelBuffer& pixels, Spot middle);

void DrawArrow(PixelBuffer& pixels, Spot from, Spot to);

// One of A to H and 1 to 8, about 20 pixels high.
void DrawLetter(PixelBuffer& pixels, Spot middle, char letter);

} // namespace tarveth::diagram
