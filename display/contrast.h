// How well colours can be told apart, as the web content accessibility guidelines measure it.
#pragma once

#include "display/pixels.h"

namespace tarveth {

// The least contrast of a shape with what is under it.
inline constexpr double kShapeContrast = 3.0;

// Gives the relative luminance: 0 for black, 1 for white.
double Luminance(Pixel colour);
// Gives the contrast of two colours: 1 for the same, 21 for black and white.
double Contrast(Pixel a, Pixel b);

// Mixes two colours: `part` is that of `b`, from 0 to 256.
Pixel Mix(Pixel a, Pixel b, int part);

// Gives the colour that is nearest to `wanted`, on its way to black or to white, and has kShapeContrast on
// `ground`. There is one for every ground, since black or white has a contrast of at least 4.5.
Pixel ReadableOn(Pixel ground, Pixel wanted);

// Gives the most translucent layer of `wanted` that has kShapeContrast on `ground`: from a half of it on.
// Where not even all of it has, the result is that of ReadableOn.
Pixel LayerOn(Pixel ground, Pixel wanted);

} // namespace tarveth
