#include "tools/diagram/marks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string_view>

namespace tarveth::diagram {

namespace {

constexpr Pixel kGreen = Rgb(0, 170, 60);
constexpr Pixel kOrange = Rgb(255, 120, 0);
constexpr Pixel kRimLight = Rgb(255, 255, 255);
constexpr Pixel kRimDark = Rgb(0, 0, 0);
constexpr Pixel kInk = Rgb(30, 30, 30);

struct Stroke {
    Spot from, to;
    double radius = 0;
};

double DistanceTo(const Stroke& stroke, Spot at) {
    const double dx = stroke.to.x - stroke.from.x;
    const double dy = stroke.to.y - stroke.from.y;
    const double length = dx * dx + dy * dy;
    const double along =
        length == 0 ? 0 : ((at.x - stroke.from.x) * dx + (at.y - stroke.from.y) * dy) / length;
    const double t = std::clamp(along, 0.0, 1.0);
    return std::hypot(at.x - stroke.from.x - t * dx, at.y - stroke.from.y - t * dy) - stroke.radius;
}

Pixel Mix(Pixel under, Pixel over, double share) {
    const auto part = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return Rgb(part(RedOf(under), RedOf(over)), part(GreenOf(under), GreenOf(over)),
               part(BlueOf(under), BlueOf(over)));
}

// Gives the share of a pixel that a shape covers, from the distance to the shape's edge (anti-aliasing).
double Cover(double distance) {
    return std::clamp(0.5 - distance, 0.0, 1.0);
}

// Draws the strokes as one shape, in three passes: a white rim, a black rim, and the colour.
void Draw(PixelBuffer& pixels, std::span<const Stroke> strokes, Pixel colour) {
    constexpr double kRim = 1.5;
    for (int y = 0; y < pixels.Height(); ++y) {
        for (int x = 0; x < pixels.Width(); ++x) {
            double distance = 1e9;
            for (const Stroke& stroke : strokes)
                distance = std::min(distance, DistanceTo(stroke, {x + 0.5, y + 0.5}));
            if (distance > 2 * kRim + 1)
                continue;
            Pixel& pixel = pixels.At(x, y);
            pixel = Mix(pixel, kRimLight, Cover(distance - 2 * kRim));
            pixel = Mix(pixel, kRimDark, Cover(distance - kRim));
            pixel = Mix(pixel, colour, Cover(distance));
        }
    }
}

// Letters of five by seven dots. Each number is a row; its highest bit is the leftmost dot.
struct Glyph {
    char letter;
    std::array<unsigned, 7> rows;
};

constexpr std::array<Glyph, 16> kGlyphs = {{
    {'A', {0x0E, 0x11, 0x11, 0x1F, 0x11, 0x11, 0x11}},
    {'B', {0x1E, 0x11, 0x11, 0x1E, 0x11, 0x11, 0x1E}},
    {'C', {0x0E, 0x11, 0x10, 0x10, 0x10, 0x11, 0x0E}},
    {'D', {0x1E, 0x11, 0x11, 0x11, 0x11, 0x11, 0x1E}},
    {'E', {0x1F, 0x10, 0x10, 0x1E, 0x10, 0x10, 0x1F}},
    {'F', {0x1F, 0x10, 0x10, 0x1E, 0x10, 0x10, 0x10}},
    {'G', {0x0E, 0x11, 0x10, 0x17, 0x11, 0x11, 0x0F}},
    {'H', {0x11, 0x11, 0x11, 0x1F, 0x11, 0x11, 0x11}},
    {'1', {0x04, 0x0C, 0x04, 0x04, 0x04, 0x04, 0x0E}},
    {'2', {0x0E, 0x11, 0x01, 0x02, 0x04, 0x08, 0x1F}},
    {'3', {0x1F, 0x02, 0x04, 0x02, 0x01, 0x11, 0x0E}},
    {'4', {0x02, 0x06, 0x0A, 0x12, 0x1F, 0x02, 0x02}},
    {'5', {0x1F, 0x10, 0x1E, 0x01, 0x01, 0x11, 0x0E}},
    {'6', {0x06, 0x08, 0x10, 0x1E, 0x11, 0x11, 0x0E}},
    {'7', {0x1F, 0x01, 0x02, 0x04, 0x08, 0x08, 0x08}},
    {'8', {0x0E, 0x11, 0x11, 0x0E, 0x11, 0x11, 0x0E}},
}};

} // namespace

void DrawDot(PixelBuffer& pixels, Spot middle) {
    Draw(pixels, std::array{Stroke{middle, middle, 9}}, kGreen);
}

void DrawCross(PixelBuffer& pixels, Spot middle) {
    constexpr double kReach = 11;
    const auto at = [middle](double dx, double dy) { return Spot{middle.x + dx, middle.y + dy}; };
    Draw(pixels,
         std::array{Stroke{at(-kReach, -kReach), at(kReach, kReach), 4},
                    Stroke{at(-kReach, kReach), at(kReach, -kReach), 4}},
         kOrange);
}

// The arrow goes from the edge of one piece to the edge of the other, so that it covers neither.
void DrawArrow(PixelBuffer& pixels, Spot from, Spot to) {
    constexpr double kPiece = 25;
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const double dx = (to.x - from.x) / length;
    const double dy = (to.y - from.y) / length;
    const Spot tail{from.x + kPiece * dx, from.y + kPiece * dy};
    const Spot tip{to.x - kPiece * dx, to.y - kPiece * dy};
    const auto barb = [&](double side) {
        return Stroke{tip, {tip.x - 20 * dx + side * 14 * dy, tip.y - 20 * dy - side * 14 * dx}, 4};
    };
    Draw(pixels, std::array{Stroke{tail, tip, 4}, barb(1), barb(-1)}, kGreen);
}

void DrawLetter(PixelBuffer& pixels, Spot middle, char letter) {
    constexpr int kDot = 3;
    const auto* glyph =
        std::find_if(kGlyphs.begin(), kGlyphs.end(), [letter](const Glyph& g) { return g.letter == letter; });
    if (glyph == kGlyphs.end())
        return;
    const int left = static_cast<int>(middle.x) - 5 * kDot / 2;
    const int top = static_cast<int>(middle.y) - 7 * kDot / 2;
    for (int row = 0; row < 7; ++row)
        for (int column = 0; column < 5; ++column)
            if ((glyph->rows.at(static_cast<std::size_t>(row)) >> (4 - column) & 1U) != 0)
                pixels.FillBox(left + column * kDot, top + row * kDot, kDot, kDot, kInk);
}

} // namespace tarveth::diagram
