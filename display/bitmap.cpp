#include "display/bitmap.h"

#include <cstddef>
#include <string>

namespace tarveth {

namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;
constexpr std::uint32_t kUncompressed = 0;
constexpr std::uint32_t kBitFields = 3; // 32 bits a pixel with channel masks

// The bytes, read as little-endian numbers within their bounds.
class Reader {
public:
    explicit Reader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::uint32_t Number(std::size_t offset, std::size_t size) const {
        Check(offset, size);
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < size; ++i)
            value |= std::uint32_t{bytes_[offset + i]} << (8 * i);
        return value;
    }
    std::int32_t Signed(std::size_t offset) const { return static_cast<std::int32_t>(Number(offset, 4)); }
    const std::uint8_t* Bytes(std::size_t offset, std::size_t size) const {
        Check(offset, size);
        return bytes_.data() + offset;
    }

private:
    void Check(std::size_t offset, std::size_t size) const {
        if (offset > bytes_.size() || size > bytes_.size() - offset)
            throw BitmapError("ends too early");
    }

    std::span<const std::uint8_t> bytes_;
};

struct Header {
    int width = 0;
    int height = 0;
    bool topDown = false;
    unsigned bitsPerPixel = 0;
    std::size_t pixelsOffset = 0;
    std::size_t paletteOffset = 0;
    std::uint32_t paletteSize = 0;
};

void CheckSize(std::int64_t width, std::int64_t height) {
    const auto fits = [](std::int64_t edge) { return edge >= kSmallestPicture && edge <= kLargestPicture; };
    if (!fits(width) || !fits(height))
        throw BitmapError("is " + std::to_string(width) + " x " + std::to_string(height) +
                          " pixels; a piece picture measures " + std::to_string(kSmallestPicture) + " to " +
                          std::to_string(kLargestPicture) + " pixels an edge");
}

// 32-bit pictures may say where their channels are; only the usual places are read.
void CheckChannels(const Reader& reader) {
    constexpr std::size_t masks = kFileHeader + kInfoHeader;
    if (reader.Number(masks, 4) != 0xFF0000 || reader.Number(masks + 4, 4) != 0xFF00 ||
        reader.Number(masks + 8, 4) != 0xFF)
        throw BitmapError("has an unusual order of colours");
}

Header ReadHeader(const Reader& reader) {
    if (reader.Number(0, 2) != 0x4D42) // "BM"
        throw BitmapError("is not a BMP file");
    const std::uint32_t infoSize = reader.Number(kFileHeader, 4);
    if (infoSize < kInfoHeader)
        throw BitmapError("is a BMP file of a kind that is not supported");

    Header header;
    const std::int64_t height = reader.Signed(22);
    header.topDown = height < 0;
    CheckSize(reader.Signed(18), height < 0 ? -height : height);
    header.width = reader.Signed(18);
    header.height = static_cast<int>(height < 0 ? -height : height);
    header.bitsPerPixel = reader.Number(28, 2);
    const std::uint32_t compression = reader.Number(30, 4);
    if (compression == kBitFields && header.bitsPerPixel == 32)
        CheckChannels(reader);
    else if (compression != kUncompressed)
        throw BitmapError("is a compressed BMP file; save it uncompressed");
    header.pixelsOffset = reader.Number(10, 4);
    header.paletteOffset = kFileHeader + infoSize;
    header.paletteSize = reader.Number(46, 4);
    return header;
}

Pixel ColourAt(const std::uint8_t* blueGreenRed) {
    return Rgb(blueGreenRed[2], blueGreenRed[1], blueGreenRed[0]);
}

std::vector<Pixel> ReadPalette(const Reader& reader, const Header& header) {
    const std::uint32_t all = 1U << header.bitsPerPixel;
    const std::uint32_t used = header.paletteSize == 0 ? all : header.paletteSize;
    if (used > all)
        throw BitmapError("has more palette colours than its pixels can name");
    std::vector<Pixel> palette(all, 0); // colours the file leaves out are black
    for (std::uint32_t i = 0; i < used; ++i)
        palette[i] = ColourAt(reader.Bytes(header.paletteOffset + std::size_t{4} * i, 4));
    return palette;
}

void DecodeRow(const std::uint8_t* from, Pixel* to, const Header& header, const std::vector<Pixel>& palette) {
    const unsigned bits = header.bitsPerPixel;
    for (unsigned x = 0; x < static_cast<unsigned>(header.width); ++x) {
        if (bits >= 24) {
            to[x] = ColourAt(from + std::size_t{bits / 8} * x);
            continue;
        }
        const unsigned perByte = 8 / bits;
        const unsigned shift = 8 - bits * (x % perByte + 1); // the leftmost pixel has the highest bits
        to[x] = palette[from[x / perByte] >> shift & ((1U << bits) - 1)];
    }
}

} // namespace

PixelBuffer ReadBitmap(std::span<const std::uint8_t> bytes) {
    const Reader reader(bytes);
    const Header header = ReadHeader(reader);
    const unsigned bits = header.bitsPerPixel;
    if (bits != 1 && bits != 4 && bits != 8 && bits != 24 && bits != 32)
        throw BitmapError("has " + std::to_string(bits) + " bits a pixel; 1, 4, 8, 24 and 32 are supported");
    const std::vector<Pixel> palette = bits <= 8 ? ReadPalette(reader, header) : std::vector<Pixel>{};

    const std::size_t stride = (std::size_t{bits} * static_cast<std::size_t>(header.width) + 31) / 32 * 4;
    PixelBuffer picture(header.width, header.height);
    for (int y = 0; y < header.height; ++y) {
        const int line = header.topDown ? y : header.height - 1 - y;
        const std::size_t offset = header.pixelsOffset + stride * static_cast<std::size_t>(line);
        DecodeRow(reader.Bytes(offset, stride), picture.Row(y), header, palette);
    }
    return picture;
}

} // namespace tarveth
