// The selection marker must be easy to see on squares of any colour.
#include "display/board.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tarveth::test {

namespace {

constexpr double kEasyToSee = 3.0; // for shapes, by the web content accessibility guidelines

double Linear(int channel) {
    const double value = channel / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(Pixel colour) {
    return 0.2126 * Linear(RedOf(colour)) + 0.7152 * Linear(GreenOf(colour)) +
           0.0722 * Linear(BlueOf(colour));
}

double Contrast(Pixel a, Pixel b) {
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

double BetterBand(Pixel square) {
    return std::max(Contrast(kMarkerDark, square), Contrast(kMarkerLight, square));
}

} // namespace

TEST(Marker, ContrastIsMeasuredAsTheGuidelinesSay) {
    EXPECT_NEAR(Contrast(Rgb(0, 0, 0), Rgb(255, 255, 255)), 21.0, 1e-9);
    EXPECT_NEAR(Contrast(Rgb(255, 0, 0), Rgb(255, 255, 255)), 3.998, 0.001);
    EXPECT_NEAR(Contrast(Rgb(119, 119, 119), Rgb(255, 255, 255)), 4.478, 0.001);
}

TEST(Marker, OneOfItsBandsIsEasyToSeeOnEveryGrey) {
    for (int grey = 0; grey <= 255; ++grey)
        EXPECT_GE(BetterBand(Rgb(grey, grey, grey)), kEasyToSee) << grey;
}

TEST(Marker, OneOfItsBandsIsEasyToSeeOnEveryColour) {
    for (int red = 0; red <= 255; red += 15)
        for (int green = 0; green <= 255; green += 15)
            for (int blue = 0; blue <= 255; blue += 15)
                ASSERT_GE(BetterBand(Rgb(red, green, blue)), kEasyToSee)
                    << red << ' ' << green << ' ' << blue;
}

TEST(Marker, ItsBandsDifferFromEachOther) {
    EXPECT_GE(Contrast(kMarkerDark, kMarkerLight), kEasyToSee);
    EXPECT_GE(Contrast(kMarkerDark, kMarkerAccent), kEasyToSee);
}

} // namespace tarveth::test
