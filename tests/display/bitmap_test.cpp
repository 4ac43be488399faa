// Reading BMP files of every kind that is supported, and refusing the others.
#include "display/bitmap.h"

#include <gtest/gtest.h>

#include <optional>

namespace tarveth::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

void Append(Bytes& bytes, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i, value >>= 8)
        bytes.push_back(static_cast<std::uint8_t>(value));
}

// A BMP file, part by part; what a test does not set is as most programs write it.
struct File {
    int width = 8;
    int height = 8; // negative for top down
    unsigned bits = 24;
    std::uint32_t compression = 0;
    std::uint32_t infoSize = 40;
    std::uint32_t coloursUsed = 0;
    Bytes afterHeader; // masks or palette
    Bytes pixels;
    std::optional<std::uint32_t> pixelsOffset;

    Bytes Write() const {
        Bytes bytes;
        Append(bytes, 0x4D42, 2);
        Append(bytes, 0, 8);
        const auto offset = static_cast<std::uint32_t>(14 + infoSize + afterHeader.size());
        Append(bytes, pixelsOffset.value_or(offset), 4);
        Append(bytes, infoSize, 4);
        Append(bytes, static_cast<std::uint32_t>(width), 4);
        Append(bytes, static_cast<std::uint32_t>(height), 4);
        Append(bytes, 1, 2);
        Append(bytes, bits, 2);
        Append(bytes, compression, 4);
        Append(bytes, 0, 12);
        Append(bytes, coloursUsed, 4);
        Append(bytes, 0, 4);
        bytes.insert(bytes.end(), afterHeader.begin(), afterHeader.end());
        bytes.insert(bytes.end(), pixels.begin(), pixels.end());
        return bytes;
    }
};

// Eight rows, the first as given, the others `rest`.
Bytes Rows(const Bytes& first, std::uint8_t rest, int rows = 8) {
    Bytes bytes = first;
    bytes.resize(first.size() * static_cast<std::size_t>(rows), rest);
    return bytes;
}

std::string RefusalOf(const Bytes& bytes) {
    try {
        ReadBitmap(bytes);
        return "";
    } catch (const BitmapError& error) {
        return error.what();
    }
}

constexpr Pixel kFirst = Rgb(3, 2, 1);

// 24 bits, the first pixel of the file in kFirst.
File TrueColour() {
    File file;
    Bytes row(24, 0);
    row[0] = 1;
    row[1] = 2;
    row[2] = 3;
    file.pixels = Rows(row, 0);
    return file;
}

// `count` colours: entry i is red i + 1, green 10, blue 20.
Bytes Palette(int count) {
    Bytes palette;
    for (int i = 0; i < count; ++i)
        Append(palette, 20U | 10U << 8 | static_cast<std::uint32_t>(i + 1) << 16, 4);
    return palette;
}

Pixel PaletteColour(int i) {
    return Rgb(i + 1, 10, 20);
}

// Pictures in palette colours, top down, with a first row that tells the pixels apart.
File OfPalette(unsigned bits, const Bytes& firstRow) {
    File file;
    file.height = -8;
    file.bits = bits;
    file.afterHeader = Palette(1 << bits);
    file.pixels = Rows(firstRow, 0);
    return file;
}
File OneBit() {
    return OfPalette(1, {0xB1, 0, 0, 0});
}
File FourBits() {
    return OfPalette(4, {0x01, 0x2F, 0x34, 0x56});
}
File EightBits() {
    return OfPalette(8, {0, 1, 2, 254, 4, 5, 6, 7});
}

void ExpectFirstRow(const PixelBuffer& picture, const std::vector<int>& colours) {
    for (int x = 0; x < 8; ++x)
        EXPECT_EQ(picture.At(x, 0), PaletteColour(colours[static_cast<std::size_t>(x)])) << x;
}

} // namespace

TEST(Bitmap, RowsUsuallyStandFromTheBottomUp) {
    const PixelBuffer picture = ReadBitmap(TrueColour().Write());
    EXPECT_EQ(picture.Width(), 8);
    EXPECT_EQ(picture.Height(), 8);
    EXPECT_EQ(picture.At(0, 7), kFirst);
    EXPECT_EQ(picture.At(0, 0), 0U);
}

TEST(Bitmap, ANegativeHeightMeansTopDown) {
    File file = TrueColour();
    file.height = -8;
    EXPECT_EQ(ReadBitmap(file.Write()).At(0, 0), kFirst);
}

TEST(Bitmap, RowsAreFilledUpToFourBytes) {
    File file;
    file.width = 9; // 27 bytes, 28 with the filling
    file.height = -8;
    Bytes row(28, 7);
    row[27] = 99;
    file.pixels = Rows(row, 7);
    EXPECT_EQ(ReadBitmap(file.Write()), PixelBuffer(9, 8, Rgb(7, 7, 7)));
}

TEST(Bitmap, OneBitAPixel) {
    ExpectFirstRow(ReadBitmap(OneBit().Write()), {1, 0, 1, 1, 0, 0, 0, 1});
}

TEST(Bitmap, FourBitsAPixel) {
    ExpectFirstRow(ReadBitmap(FourBits().Write()), {0, 1, 2, 15, 3, 4, 5, 6});
}

TEST(Bitmap, EightBitsAPixel) {
    ExpectFirstRow(ReadBitmap(EightBits().Write()), {0, 1, 2, 254, 4, 5, 6, 7});
}

TEST(Bitmap, ThirtyTwoBitsAPixelWithoutRegardToTheFourth) {
    File file;
    file.bits = 32;
    for (int i = 0; i < 64; ++i)
        Append(file.pixels, 0x80030201, 4);
    EXPECT_EQ(ReadBitmap(file.Write()), PixelBuffer(8, 8, Rgb(3, 2, 1)));
}

TEST(Bitmap, ThirtyTwoBitsMaySayThatTheirChannelsAreInTheUsualPlaces) {
    File file;
    file.bits = 32;
    file.compression = 3;
    for (const std::uint32_t mask : {0xFF0000U, 0xFF00U, 0xFFU})
        Append(file.afterHeader, mask, 4);
    for (int i = 0; i < 64; ++i)
        Append(file.pixels, 0x030201, 4);
    EXPECT_EQ(ReadBitmap(file.Write()), PixelBuffer(8, 8, Rgb(3, 2, 1)));
    file.afterHeader[0] = 0xFF;
    EXPECT_EQ(RefusalOf(file.Write()), "has an unusual order of colours");
}

// One row of these numbers, and seven of zeros; with masks for red, green and blue unless they are none.
File OfNumbers(unsigned bits, const std::vector<std::uint32_t>& masks, std::vector<std::uint32_t> numbers) {
    File file;
    file.height = -8;
    file.bits = bits;
    file.compression = masks.empty() ? 0 : 3;
    for (const std::uint32_t mask : masks)
        Append(file.afterHeader, mask, 4);
    numbers.resize(64, 0);
    for (const std::uint32_t number : numbers)
        Append(file.pixels, number, static_cast<int>(bits / 8));
    return file;
}

void ExpectPixels(const File& file, const std::vector<Pixel>& pixels) {
    const PixelBuffer picture = ReadBitmap(file.Write());
    for (int x = 0; x < static_cast<int>(pixels.size()); ++x)
        EXPECT_EQ(picture.At(x, 0), pixels[static_cast<std::size_t>(x)]) << x;
    EXPECT_EQ(picture.At(0, 1), Rgb(0, 0, 0));
}

TEST(Bitmap, SixteenBitsAPixelAreFiveForEachColour) {
    ExpectPixels(OfNumbers(16, {}, {0x7C00, 0x03E0, 0x001F, 0x7FFF, 0x8000, 0x4210, 0x0421}),
                 {Rgb(255, 0, 0), Rgb(0, 255, 0), Rgb(0, 0, 255), Rgb(255, 255, 255), Rgb(0, 0, 0),
                  Rgb(132, 132, 132), Rgb(8, 8, 8)});
}

TEST(Bitmap, SixteenBitsMayBeSixForGreen) {
    ExpectPixels(
        OfNumbers(16, {0xF800, 0x07E0, 0x001F}, {0xF800, 0x07E0, 0x001F, 0xFFFF, 0x0020, 0x0400}),
        {Rgb(255, 0, 0), Rgb(0, 255, 0), Rgb(0, 0, 255), Rgb(255, 255, 255), Rgb(0, 4, 0), Rgb(0, 130, 0)});
}

TEST(Bitmap, SixteenBitsMayHaveAnyOtherMasks) {
    ExpectPixels(OfNumbers(16, {0x000F, 0x00F0, 0x0F00}, {0x000F, 0x00F0, 0x0F00, 0x0021}),
                 {Rgb(255, 0, 0), Rgb(0, 255, 0), Rgb(0, 0, 255), Rgb(17, 34, 0)});
    ExpectPixels(OfNumbers(16, {0x8000, 0x7FFE, 0}, {0x8000, 0x7FFE, 0xFFFF}),
                 {Rgb(255, 0, 0), Rgb(0, 255, 0), Rgb(255, 255, 0)});
}

TEST(Bitmap, ThirtyTwoBitsMayHaveAnyMasks) {
    ExpectPixels(OfNumbers(32, {0xFF, 0xFF00, 0xFF0000}, {0x030201, 0xFF00FF00}),
                 {Rgb(1, 2, 3), Rgb(0, 255, 0)});
    ExpectPixels(OfNumbers(32, {0x3FF00000, 0xFFC00, 0x3FF}, {0x3FF00000, 0x80000, 0x3FF}),
                 {Rgb(255, 0, 0), Rgb(0, 128, 0), Rgb(0, 0, 255)});
    ExpectPixels(OfNumbers(32, {0xFFFFFFFF, 0, 0}, {0xFFFFFFFF, 0x80000000}),
                 {Rgb(255, 0, 0), Rgb(128, 0, 0)});
}

TEST(Bitmap, MasksWithHolesAreRefused) {
    for (const std::uint32_t mask : {0x5U, 0xF0F0U, 0x80000001U}) {
        EXPECT_EQ(RefusalOf(OfNumbers(32, {mask, 0xFF00, 0xFF}, {}).Write()),
                  "has an unusual order of colours");
        EXPECT_EQ(RefusalOf(OfNumbers(16, {0xF800, 0x07E0, mask}, {}).Write()),
                  "has an unusual order of colours");
    }
}

TEST(Bitmap, APaletteMayBeShorterThanAllItsColours) {
    File file = FourBits();
    file.coloursUsed = 8;
    file.afterHeader = Palette(8);
    const PixelBuffer picture = ReadBitmap(file.Write());
    EXPECT_EQ(picture.At(2, 0), PaletteColour(2));
    EXPECT_EQ(picture.At(3, 0), Rgb(0, 0, 0)); // colour 15 is not in it
}

TEST(Bitmap, APaletteOfMoreColoursThanThePixelsCanNameIsRefused) {
    File file = FourBits();
    file.coloursUsed = 17;
    EXPECT_EQ(RefusalOf(file.Write()), "has more palette colours than its pixels can name");
    file.coloursUsed = 0xFFFFFFFF;
    EXPECT_EQ(RefusalOf(file.Write()), "has more palette colours than its pixels can name");
}

TEST(Bitmap, LongerHeadersAreReadPast) {
    File file = EightBits();
    file.infoSize = 124;
    Bytes more(124 - 40, 0xEE);
    file.afterHeader.insert(file.afterHeader.begin(), more.begin(), more.end());
    file.pixelsOffset = 14 + 124 + 1024;
    ExpectFirstRow(ReadBitmap(file.Write()), {0, 1, 2, 254, 4, 5, 6, 7});
}

TEST(Bitmap, CompressedPicturesAreRefused) {
    for (const std::uint32_t compression : {1U, 2U, 3U, 4U, 5U, 0xFFFFFFFFU}) {
        File file = EightBits();
        file.compression = compression;
        EXPECT_EQ(RefusalOf(file.Write()), "is a compressed BMP file; save it uncompressed") << compression;
    }
}

TEST(Bitmap, OtherDepthsAreRefused) {
    for (const unsigned bits : {0U, 2U, 3U, 15U, 64U, 65535U}) {
        File file = TrueColour();
        file.bits = bits;
        EXPECT_EQ(RefusalOf(file.Write()),
                  "has " + std::to_string(bits) + " bits a pixel; 1, 4, 8, 16, 24 and 32 are supported");
    }
}

TEST(Bitmap, TheOldestHeaderIsRefused) {
    File file = TrueColour();
    file.infoSize = 12;
    EXPECT_EQ(RefusalOf(file.Write()), "is a BMP file of a kind that is not supported");
}

TEST(Bitmap, EdgesOf8To512PixelsAreRead) {
    for (const int edge : {8, 512}) {
        File file;
        file.width = edge;
        file.pixels = Bytes(static_cast<std::size_t>(edge) * 3 * 8, 5);
        EXPECT_EQ(ReadBitmap(file.Write()), PixelBuffer(edge, 8, Rgb(5, 5, 5)));
    }
}

TEST(Bitmap, OtherSizesAreRefusedBeforeTheyCostMemory) {
    constexpr int kMost = 0x7FFFFFFF;
    for (const int edge : {0, 1, 7, 513, 8000, kMost, -8, -kMost, -kMost - 1}) {
        File file = TrueColour();
        file.width = edge;
        EXPECT_NE(RefusalOf(file.Write()).find("pixels an edge"), std::string::npos) << edge;
        file.width = 8;
        file.height = edge;
        if (edge != -8) {
            EXPECT_NE(RefusalOf(file.Write()).find("pixels an edge"), std::string::npos) << edge;
        }
    }
}

TEST(Bitmap, PixelsSaidToLieOutsideTheFileAreRefused) {
    for (const std::uint32_t offset : {55U, 1000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        File file = TrueColour();
        file.pixelsOffset = offset;
        EXPECT_EQ(RefusalOf(file.Write()), "ends too early");
    }
    File file = EightBits();
    file.infoSize = 0xFFFFFFF0;
    EXPECT_EQ(RefusalOf(file.Write()), "ends too early");
}

TEST(Bitmap, CutAtAnyByteAFileIsRefused) {
    File thirtyTwo;
    thirtyTwo.bits = 32;
    thirtyTwo.pixels = Bytes(256, 1);
    for (const File& file : {OneBit(), FourBits(), EightBits(), TrueColour(), thirtyTwo}) {
        const Bytes whole = file.Write();
        EXPECT_EQ(RefusalOf(whole), "");
        for (std::size_t size = 0; size < whole.size(); ++size) {
            // A block of exactly that size, so that a read past it is noticed.
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
            ASSERT_EQ(RefusalOf(cut), "ends too early") << size;
        }
    }
}

TEST(Bitmap, AnyByteOfTheHeaderMayBeWrongWithoutHarm) {
    for (const File& file : {OneBit(), EightBits(), TrueColour()}) {
        const Bytes whole = file.Write();
        for (std::size_t i = 0; i < 54; ++i)
            for (const int value : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
                Bytes changed = whole;
                changed[i] = static_cast<std::uint8_t>(value);
                try {
                    const PixelBuffer picture = ReadBitmap(changed);
                    EXPECT_LE(picture.Width(), kLargestPicture);
                    EXPECT_LE(picture.Height(), kLargestPicture);
                } catch (const BitmapError&) { // as good an answer
                }
            }
    }
}

} // namespace tarveth::test
