// Small cases of DrawTransparent, one letter a pixel.
#include "display/modTransparent.h"
#include "tests/RecordingPort.h"
#include "tests/display/Letters.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

using Rows = std::vector<std::string>;

PictureBox WhiteBox(int width, int height) {
    PictureBox box;
    box.SetSize(width * kTwipsPerPixelX, height * kTwipsPerPixelY);
    box.Pixels.Fill(Rgb(255, 255, 255));
    return box;
}

// A white surface of 5 by 4 pixels with the picture drawn at (x, y).
Rows Drawn(const PixelBuffer& picture, std::int16_t x, std::int16_t y) {
    RecordingPort person;
    PictureBox box = WhiteBox(5, 4);
    DrawTransparent(&box, picture, x, y, kKeyGreen, person);
    EXPECT_TRUE(person.boxes.empty());
    return TextOf(box.Pixels);
}

const PixelBuffer kCross = Picture({".r.", //
                                    "rbr", //
                                    ".r."});
const Rows kUntouched = {"wwwww", "wwwww", "wwwww", "wwwww"};

} // namespace

TEST(Transparent, TheSurfaceShowsThroughTheKeyColour) {
    EXPECT_EQ(Drawn(kCross, 1, 0), (Rows{"wwrww", //
                                         "wrbrw", //
                                         "wwrww", //
                                         "wwwww"}));
}

TEST(Transparent, APictureOfTheKeyColourAloneChangesNothing) {
    EXPECT_EQ(Drawn(Picture({"...", "..."}), 1, 1), kUntouched);
}

TEST(Transparent, APictureWithoutTheKeyColourIsAnOpaqueRectangle) {
    EXPECT_EQ(Drawn(Picture({"kr", "yb"}), 2, 1), (Rows{"wwwww", //
                                                        "wwkrw", //
                                                        "wwybw", //
                                                        "wwwww"}));
}

TEST(Transparent, OneStepOffTheKeyColourIsPainted) {
    EXPECT_EQ(Drawn(Picture({"~.~"}), 0, 0), (Rows{"~w~ww", "wwwww", "wwwww", "wwwww"}));
}

TEST(Transparent, EveryNeighbourOfTheKeyColourIsPainted) {
    for (const Pixel near : {Rgb(1, 255, 0), Rgb(0, 254, 0), Rgb(0, 255, 1)}) {
        RecordingPort person;
        PictureBox box = WhiteBox(1, 1);
        DrawTransparent(&box, PixelBuffer(1, 1, near), 0, 0, kKeyGreen, person);
        EXPECT_EQ(box.Pixels.At(0, 0), near);
    }
}

TEST(Transparent, AnyColourMayBeTheKey) {
    RecordingPort person;
    PictureBox box = WhiteBox(3, 1);
    DrawTransparent(&box, Picture({"r.b"}), 0, 0, Rgb(0, 0, 255), person);
    EXPECT_EQ(TextOf(box.Pixels), (Rows{"r.w"}));
}

TEST(Transparent, BlackAndWhitePixelsOfAPictureAreOrdinaryColours) {
    EXPECT_EQ(Drawn(Picture({"k.w"}), 0, 0), (Rows{"kwwww", "wwwww", "wwwww", "wwwww"}));
}

TEST(Transparent, ClipsAtTheLeft) {
    EXPECT_EQ(Drawn(kCross, -1, 0), (Rows{"rwwww", "brwww", "rwwww", "wwwww"}));
}

TEST(Transparent, ClipsAtTheTop) {
    EXPECT_EQ(Drawn(kCross, 1, -1), (Rows{"wrbrw", "wwrww", "wwwww", "wwwww"}));
}

TEST(Transparent, ClipsAtTheRight) {
    EXPECT_EQ(Drawn(kCross, 3, 0), (Rows{"wwwwr", "wwwrb", "wwwwr", "wwwww"}));
}

TEST(Transparent, ClipsAtTheBottom) {
    EXPECT_EQ(Drawn(kCross, 1, 2), (Rows{"wwwww", "wwwww", "wwrww", "wrbrw"}));
}

TEST(Transparent, ClipsOnAllSidesAtOnce) {
    RecordingPort person;
    PictureBox box = WhiteBox(1, 1);
    DrawTransparent(&box, kCross, -1, -1, kKeyGreen, person);
    EXPECT_EQ(TextOf(box.Pixels), (Rows{"b"}));
}

TEST(Transparent, WhollyOutsideDrawsNothing) {
    constexpr std::int16_t kFar = 32767;
    for (const std::int16_t far : {std::int16_t{-3}, std::int16_t{5}, kFar, std::int16_t{-kFar - 1}}) {
        EXPECT_EQ(Drawn(kCross, far, 0), kUntouched) << far;
        EXPECT_EQ(Drawn(kCross, 0, far), kUntouched) << far;
        EXPECT_EQ(Drawn(kCross, far, far), kUntouched) << far;
    }
}

TEST(Transparent, AnEmptyPictureOrSurfaceIsNoFault) {
    EXPECT_EQ(Drawn(PixelBuffer(), 0, 0), kUntouched);
    RecordingPort person;
    PictureBox nothing;
    DrawTransparent(&nothing, kCross, 0, 0, kKeyGreen, person);
    EXPECT_TRUE(nothing.Pixels.Empty());
}

TEST(Transparent, ThePictureIsUnchangedAfterwards) {
    RecordingPort person;
    PictureBox box = WhiteBox(5, 4);
    const PixelBuffer before = kCross;
    PixelBuffer picture = kCross;
    DrawTransparent(&box, picture, -1, 2, kKeyGreen, person);
    EXPECT_EQ(picture, before);
}

TEST(Transparent, WhatIsNoPictureBoxGivesAMessageBox) {
    RecordingPort person;
    DrawTransparent(nullptr, kCross, 0, 0, kKeyGreen, person);
    EXPECT_EQ(person.boxes, (Rows{"you're trying to use the wrong object"}));
}

} // namespace tarveth::test
