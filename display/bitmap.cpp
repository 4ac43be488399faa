#include "display/bitmap.h"

#include <array>
#include <bit>
#include <cstddef>
#include <optional>
#include <string>

namespace tarveth {

namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;
constexpr std::uint32_t kUncompressed = 0;
constexpr std::uint32_t kBitFields = 3; // 16 or 32 bits a pixel with channel masks

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

// Where a pixel's number holds one of its colours.
struct Channel {
    unsigned shift = 0;
    std::uint32_t most = 0; // the largest value; 0 where the picture lacks this colour

    int Of(std::uint32_t pixel) const {
        const std::uint64_t value = pixel >> shift & most;
        return most == 0 ? 0 : static_cast<int>((value * 255 + most / 2) / most);
    }
};

struct Header {
    int width = 0;
    int height = 0;
    bool topDown = false;
    unsigned bitsPerPixel = 0;
    std::size_t pixelsOffset = 0;
    std::size_t paletteOffset = 0;
    std::uint32_t paletteSize = 0;
    std::optional<std::array<Channel, 3>> channels; // red, green, blue, where masks tell them
};

void CheckSize(std::int64_t width, std::int64_t height) {
    const auto fits = [](std::int64_t edge) { return edge >= kSmallestPicture && edge <= kLargestPicture; };
    if (!fits(width) || !fits(height))
        throw BitmapError("is " + std::to_string(width) + " x " + std::to_string(height) +
                          " pixels; a piece picture measures " + std::to_string(kSmallestPicture) + " to " +
                          std::to_string(kLargestPicture) + " pixels an edge");
}

// The bits of a mask stand side by side.
Channel ChannelOf(std::uint32_t mask) {
    if (mask == 0)
        return {};
    const auto shift = static_cast<unsigned>(std::countr_zero(mask));
    const std::uint32_t most = mask >> shift;
    if ((most & (most + 1)) != 0)
        throw BitmapError("has an unusual order of colours");
    return {shift, most};
}

// Pictures of 16 bits have 5 for each colour, unless masks say otherwise.
std::optional<std::array<Channel, 3>> ReadChannels(const Reader& reader, unsigned bits,
                                                   std::uint32_t compression) {
    constexpr std::size_t masks = kFileHeader + kInfoHeader;
    if (compression == kBitFields && (bits == 16 || bits == 32))
        return std::array{ChannelOf(reader.Number(masks, 4)), ChannelOf(reader.Number(masks + 4, 4)),
                          ChannelOf(reader.Number(masks + 8, 4))};
    if (compression != kUncompressed)
        throw BitmapError("is a compressed BMP file; save it uncompressed");
    if (bits == 16)
        return std::array{ChannelOf(0x7C00), ChannelOf(0x3E0), ChannelOf(0x1F)};
    return std::nullopt;
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
    header.channels = ReadChannels(reader, header.bitsPerPixel, reader.Number(30, 4));
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

Pixel MaskedColour(const Reader& pixel, std::size_t bytes, const std::array<Channel, 3>& channels) {
    const std::uint32_t value = pixel.Number(0, bytes);
    return Rgb(channels[0].Of(value), channels[1].Of(value), channels[2].Of(value));
}

void DecodeRow(const std::uint8_t* from, Pixel* to, const Header& header, const std::vector<Pixel>& palette) {
    const unsigned bits = header.bitsPerPixel;
    for (unsigned x = 0; x < static_cast<unsigned>(header.width); ++x) {
        if (bits >= 16) {
            const std::size_t size = bits / 8;
            const std::uint8_t* pixel = from + size * x;
            to[x] = header.channels ? MaskedColour(Reader({pixel, size}), size, *header.channels)
                                    : ColourAt(pixel);
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
    if (bits != 1 && bits != 4 && bits != 8 && bits != 16 && bits != 24 && bits != 32)
        throw BitmapError("has " + std::to_string(bits) +
                          " bits a pixel; 1, 4, 8, 16, 24 and 32 are supported");
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
