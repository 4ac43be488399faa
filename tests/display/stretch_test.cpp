// Stretching pictures to other sizes.
#include "display/stretch.h"
#include "tests/Dice.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>

namespace tarveth::test {

namespace {

PixelBuffer Stretched(const PixelBuffer& from, int width, int height) {
    PixelBuffer to(width, height, Rgb(1, 2, 3));
    StretchPixels(from, to);
    return to;
}

PixelBuffer Noise(int width, int height, std::uint64_t seed) {
    Dice dice(seed);
    PixelBuffer picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.At(x, y) = Rgb(dice.Below(256), dice.Below(256), dice.Below(256));
    return picture;
}

std::array<int, 3> Channels(Pixel colour) {
    return {RedOf(colour), GreenOf(colour), BlueOf(colour)};
}

std::array<double, 3> MeanOf(const PixelBuffer& picture) {
    std::array<double, 3> mean{};
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x)
            for (std::size_t c = 0; c < 3; ++c)
                mean[c] += Channels(picture.At(x, y))[c];
    for (double& channel : mean)
        channel /= static_cast<double>(picture.Width()) * picture.Height();
    return mean;
}

// The share of source pixel `i` in target pixel `k` along an edge.
double Share(int i, int k, int fromLength, int toLength) {
    const double ratio = static_cast<double>(fromLength) / toLength;
    const double covered = std::min(i + 1.0, (k + 1) * ratio) - std::max(i + 0.0, k * ratio);
    return covered > 0 ? covered / ratio : 0;
}

// The mean of the covered area, worked out the slow way.
std::array<double, 3> Expected(const PixelBuffer& from, int x, int y, int width, int height) {
    std::array<double, 3> sum{};
    for (int row = 0; row < from.Height(); ++row)
        for (int column = 0; column < from.Width(); ++column) {
            const double share = Share(column, x, from.Width(), width) * Share(row, y, from.Height(), height);
            for (std::size_t c = 0; c < 3; ++c)
                sum[c] += share * Channels(from.At(column, row))[c];
        }
    return sum;
}

} // namespace

TEST(Stretch, WholeMultiplesRepeatEveryPixel) {
    const PixelBuffer from = Noise(7, 5, 1);
    for (const int times : {1, 2, 3, 4, 7}) {
        const PixelBuffer to = Stretched(from, 7 * times, 5 * times);
        for (int y = 0; y < to.Height(); ++y)
            for (int x = 0; x < to.Width(); ++x)
                ASSERT_EQ(to.At(x, y), from.At(x / times, y / times)) << times;
    }
}

TEST(Stretch, EdgesMayHaveDifferentMultiples) {
    const PixelBuffer from = Noise(3, 4, 2);
    const PixelBuffer to = Stretched(from, 9, 4);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 9; ++x)
            ASSERT_EQ(to.At(x, y), from.At(x / 3, y));
}

TEST(Stretch, OneColourStaysThatColourAtEveryRatio) {
    for (const Pixel colour : {Rgb(0, 0, 0), Rgb(255, 255, 255), Rgb(1, 254, 127), Rgb(0, 255, 0)})
        for (int length = 1; length <= 40; ++length)
            ASSERT_EQ(Stretched(PixelBuffer(13, 17, colour), length, 41 - length),
                      PixelBuffer(length, 41 - length, colour))
                << length;
}

TEST(Stretch, OneColourStaysThatColourWhenAWholeBoardBecomesOnePixel) {
    const Pixel colour = Rgb(200, 100, 50);
    for (const int length : {256, 257, 320, 512, 1000, 1024, 4096})
        ASSERT_EQ(Stretched(PixelBuffer(length, 3, colour), 1, 1).At(0, 0), colour) << length;
}

TEST(Stretch, HalfTheSizeIsTheMeanOfTwoByTwoPixels) {
    const PixelBuffer from = Noise(16, 12, 3);
    const PixelBuffer to = Stretched(from, 8, 6);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 8; ++x)
            for (std::size_t c = 0; c < 3; ++c) {
                int sum = 0;
                for (const int i : {0, 1, 2, 3})
                    sum += Channels(from.At(2 * x + i % 2, 2 * y + i / 2))[c];
                ASSERT_NEAR(Channels(to.At(x, y))[c], sum / 4.0,
                            1.0); // each direction rounds by up to a half
            }
}

TEST(Stretch, HalfTheSizeOfEvenPixelsIsTheirExactMean) {
    PixelBuffer from(2, 2);
    from.At(0, 0) = Rgb(0, 40, 255);
    from.At(1, 0) = Rgb(4, 80, 255);
    from.At(0, 1) = Rgb(8, 0, 255);
    from.At(1, 1) = Rgb(12, 0, 255);
    EXPECT_EQ(Stretched(from, 1, 1).At(0, 0), Rgb(6, 30, 255));
}

// Rounded weights of a 256th and two roundings leave every pixel within three steps of the true mean.
TEST(Stretch, EveryPixelIsTheMeanOfTheAreaItCovers) {
    for (const auto [width, height] : {std::array{5, 9}, {12, 8}, {13, 11}, {17, 3}, {9, 31}, {36, 24}}) {
        const PixelBuffer from = Noise(12, 8, static_cast<std::uint64_t>(width));
        const PixelBuffer to = Stretched(from, width, height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                for (std::size_t c = 0; c < 3; ++c)
                    ASSERT_NEAR(Channels(to.At(x, y))[c], Expected(from, x, y, width, height)[c], 3.0)
                        << width << " x " << height << " at " << x << ", " << y;
    }
}

TEST(Stretch, StrongReductionWeighsAllPixelsAlike) {
    PixelBuffer from(1000, 1);
    for (int x = 0; x < 500; ++x)
        from.At(x, 0) = Rgb(255, 255, 255);
    EXPECT_NEAR(RedOf(Stretched(from, 1, 1).At(0, 0)), 127.5, 1.0);
}

TEST(Stretch, TheMeanBrightnessStays) {
    const PixelBuffer from = Noise(64, 64, 4);
    const std::array<double, 3> before = MeanOf(from);
    for (const int length : {9, 21, 32, 45, 63, 65, 80, 96, 127, 128, 200}) {
        const std::array<double, 3> after = MeanOf(Stretched(from, length, length));
        for (std::size_t c = 0; c < 3; ++c)
            EXPECT_NEAR(after[c], before[c], 0.75) << length; // exact halves go up, twice at 32
    }
}

TEST(Stretch, EverySizeFillsTheWholeTarget) {
    const Pixel colour = Rgb(9, 8, 7);
    for (int from = 1; from <= 24; ++from)
        for (int to = 1; to <= 24; ++to)
            ASSERT_EQ(Stretched(PixelBuffer(from, 25 - from, colour), to, 25 - to),
                      PixelBuffer(to, 25 - to, colour))
                << from << " to " << to;
}

TEST(Stretch, AMirroredPictureGivesTheMirroredResult) {
    const PixelBuffer from = Noise(32, 1, 5);
    PixelBuffer mirrored(32, 1);
    for (int x = 0; x < 32; ++x)
        mirrored.At(31 - x, 0) = from.At(x, 0);
    for (const int length : {20, 31, 33, 48, 100}) {
        const PixelBuffer to = Stretched(from, length, 1);
        const PixelBuffer other = Stretched(mirrored, length, 1);
        for (int x = 0; x < length; ++x)
            for (std::size_t c = 0; c < 3; ++c)
                ASSERT_LE(std::abs(Channels(to.At(x, 0))[c] - Channels(other.At(length - 1 - x, 0))[c]), 2)
                    << length;
    }
}

TEST(Stretch, NothingToTakeFromOrToFillIsNoFault) {
    EXPECT_EQ(Stretched(PixelBuffer(), 2, 2), PixelBuffer(2, 2, Rgb(1, 2, 3)));
    EXPECT_TRUE(Stretched(PixelBuffer(2, 2), 0, 0).Empty());
}

} // namespace tarveth::test
