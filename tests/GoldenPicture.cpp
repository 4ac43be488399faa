#include "tests/GoldenPicture.h"

#include "display/bitmap.h"
#include "tests/platform/TempFolder.h"

#include <algorithm>
#include <optional>

namespace tarveth::test {

namespace {

constexpr std::uint32_t kHeaders = 14 + 40;

void Append(std::string& bytes, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i, value >>= 8)
        bytes += static_cast<char>(value & 0xFF);
}

std::optional<PixelBuffer> ReadGolden(const std::string& bytes) {
    try {
        return ReadBitmap({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    } catch (const BitmapError&) {
        return std::nullopt;
    }
}

PixelBuffer DifferenceOf(const PixelBuffer& golden, const PixelBuffer& drawn) {
    PixelBuffer difference(std::max(golden.Width(), drawn.Width()), std::max(golden.Height(), drawn.Height()),
                           Rgb(255, 0, 0));
    const auto faint = [](int channel) { return 192 + channel / 4; };
    for (int y = 0; y < std::min(golden.Height(), drawn.Height()); ++y)
        for (int x = 0; x < std::min(golden.Width(), drawn.Width()); ++x) {
            const Pixel colour = golden.At(x, y);
            if (colour == drawn.At(x, y))
                difference.At(x, y) =
                    Rgb(faint(RedOf(colour)), faint(GreenOf(colour)), faint(BlueOf(colour)));
        }
    return difference;
}

} // namespace

std::string WriteBitmap(const PixelBuffer& picture) {
    const auto rowBytes = static_cast<std::size_t>(picture.Width()) * 3;
    const std::size_t filling = (4 - rowBytes % 4) % 4;
    const auto size =
        static_cast<std::uint32_t>((rowBytes + filling) * static_cast<std::size_t>(picture.Height()));
    std::string bytes = "BM";
    Append(bytes, kHeaders + size, 4);
    Append(bytes, 0, 4);
    Append(bytes, kHeaders, 4);
    Append(bytes, 40, 4);
    Append(bytes, static_cast<std::uint32_t>(picture.Width()), 4);
    Append(bytes, static_cast<std::uint32_t>(picture.Height()), 4);
    Append(bytes, 1, 2);
    Append(bytes, 24, 2);
    Append(bytes, 0, 4);
    Append(bytes, size, 4);
    Append(bytes, 0, 16);
    for (int y = picture.Height() - 1; y >= 0; --y) {
        for (int x = 0; x < picture.Width(); ++x) {
            const Pixel colour = picture.At(x, y);
            Append(bytes, static_cast<std::uint32_t>(BlueOf(colour)), 1);
            Append(bytes, static_cast<std::uint32_t>(GreenOf(colour)), 1);
            Append(bytes, static_cast<std::uint32_t>(RedOf(colour)), 1);
        }
        bytes.append(filling, '\0');
    }
    return bytes;
}

std::string CompareWithGolden(const std::string& name, const PixelBuffer& picture) {
    const std::string golden = GetBytes(TARVETH_SOURCE_DIR "/tests/golden/" + name + ".bmp");
    const std::string drawn = WriteBitmap(picture);
    if (drawn == golden)
        return "";
    const std::filesystem::path folder = TARVETH_GOLDEN_FAILURES;
    std::filesystem::create_directories(folder);
    PutBytes((folder / (name + ".bmp")).string(), drawn);
    const auto expected = ReadGolden(golden);
    if (expected)
        PutBytes((folder / (name + "-difference.bmp")).string(),
                 WriteBitmap(DifferenceOf(*expected, picture)));
    return name + (expected ? " is not as expected" : " has no golden picture") + "; see " +
           (folder / (name + ".bmp")).string() + ". When it is right: tools/accept-golden " +
           folder.string() + ' ' + name;
}

} // namespace tarveth::test
