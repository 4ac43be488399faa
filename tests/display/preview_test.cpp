// Previews of piece pictures.
#include "display/preview.h"

#include "engine/rules/modPieces.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

constexpr Pixel kGround = Rgb(9, 8, 7);
constexpr Pixel kInk = Rgb(200, 100, 50);

TEST(Preview, ShowsTheGroundWhereThePictureHasItsKeyColour) {
    PixelBuffer picture(2, 2, kKeyGreen);
    picture.At(1, 0) = kInk;
    const PixelBuffer small = Preview(picture, 4, kGround);
    EXPECT_EQ(small.Width(), 4);
    EXPECT_EQ(small.Height(), 4);
    EXPECT_EQ(small.At(0, 0), kGround);
    EXPECT_EQ(small.At(3, 1), kInk);
    EXPECT_EQ(small.At(3, 2), kGround);
}

TEST(Preview, HasNoGreenEdgeWhenItIsShrunk) {
    PixelBuffer picture(9, 9, kKeyGreen);
    picture.FillBox(2, 2, 5, 5, kGround);
    const PixelBuffer small = Preview(picture, 4, kGround);
    EXPECT_EQ(small, PixelBuffer(4, 4, kGround));
}

TEST(Preview, KeepsTheProportions) {
    const PixelBuffer wide = Preview(PixelBuffer(40, 20, kInk), 10, kGround);
    EXPECT_EQ(wide.At(5, 1), kGround);
    EXPECT_EQ(wide.At(0, 2), kInk);
    EXPECT_EQ(wide.At(9, 6), kInk);
    EXPECT_EQ(wide.At(5, 7), kGround);
    const PixelBuffer line = Preview(PixelBuffer(1, 500, kInk), 10, kGround);
    EXPECT_EQ(line.At(4, 0), kInk);
    EXPECT_EQ(line.At(5, 0), kGround);
}

TEST(Preview, OfAnEmptyPictureIsTheBackground) {
    EXPECT_EQ(Preview({}, 3, kGround), PixelBuffer(3, 3, kGround));
}

TEST(PieceBoard, PutsEachPieceOnASquareOfItsOwn) {
    std::array<PixelBuffer, 4> blue;
    std::array<PixelBuffer, 4> red;
    for (std::size_t kind = Master; kind <= Pawn; ++kind) {
        blue[kind] = PixelBuffer(4, 4, kKeyGreen);
        red[kind] = blue[kind];
        blue[kind].FillBox(1, 1, 2, 2, static_cast<Pixel>(kind));
        red[kind].FillBox(1, 1, 2, 2, static_cast<Pixel>(10 + kind));
    }
    const PixelBuffer board = PieceBoard(blue, red, 4);
    EXPECT_EQ(board.Width(), 12);
    EXPECT_EQ(board.Height(), 8);
    for (int column = 0; column < 3; ++column) {
        EXPECT_EQ(board.At(column * 4 + 1, 1), static_cast<Pixel>(column + 1));
        EXPECT_EQ(board.At(column * 4 + 1, 5), static_cast<Pixel>(column + 11));
    }
    EXPECT_EQ(board.At(0, 0), Rgb(255, 255, 255));
    EXPECT_EQ(board.At(4, 0), Rgb(0, 0, 0));
    EXPECT_EQ(board.At(0, 4), Rgb(0, 0, 0));
}

} // namespace
} // namespace tarveth
