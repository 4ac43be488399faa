#include "display/stretch.h"

#include <algorithm>
#include <cstdint>

namespace tarveth {

namespace {

// The source pixels that one target pixel covers along an edge: `first` with weight firstWeight, and, when
// the target is the larger, at most one more; when it is the smaller, all up to `last`, whole ones in
// between.
struct Cover {
    int first;
    int last;
    std::uint32_t firstWeight; // of 256, the share of the target pixel
    std::uint32_t lastWeight;
    std::uint32_t innerWeight; // each pixel in between
};

constexpr std::uint32_t kWhole = 256;

std::vector<Cover> CoverEdge(int fromLength, int toLength) {
    std::vector<Cover> covers;
    covers.reserve(static_cast<std::size_t>(toLength));
    for (int i = 0; i < toLength; ++i) {
        // Cut in whole arithmetic, so that edges that meet exactly do.
        const std::int64_t start = std::int64_t{i} * fromLength;
        const std::int64_t end = start + fromLength;
        const int first = static_cast<int>(start / toLength);
        const int last = static_cast<int>((end - 1) / toLength);
        if (first == last) {
            covers.push_back({first, last, kWhole, 0, 0});
            continue;
        }
        const std::int64_t firstShare = std::int64_t{first + 1} * toLength - start; // of fromLength
        const auto firstWeight =
            static_cast<std::uint32_t>((firstShare * kWhole + fromLength / 2) / fromLength);
        const int inner = last - first - 1;
        const auto innerWeight =
            inner == 0 ? 0 : static_cast<std::uint32_t>(std::int64_t{toLength} * kWhole / fromLength);
        const std::uint32_t used = firstWeight + innerWeight * static_cast<std::uint32_t>(inner);
        covers.push_back({first, last, firstWeight, kWhole - std::min(used, kWhole), innerWeight});
    }
    return covers;
}

// Two channels at a time: red and blue share one word, green goes in another.
constexpr Pixel kRedBlue = 0xFF00FF;
constexpr Pixel kGreen = 0x00FF00;

constexpr Pixel Blend(Pixel a, std::uint32_t weightA, Pixel b, std::uint32_t weightB) {
    const Pixel redBlue = ((a & kRedBlue) * weightA + (b & kRedBlue) * weightB) >> 8 & kRedBlue;
    const Pixel green = ((a & kGreen) * weightA + (b & kGreen) * weightB) >> 8 & kGreen;
    return redBlue | green;
}

// The mean of several pixels `stride` apart.
Pixel Mean(const Pixel* from, std::ptrdiff_t stride, const Cover& cover) {
    Pixel redBlue = 0;
    Pixel green = 0;
    for (int i = cover.first; i <= cover.last; ++i) {
        const std::uint32_t weight = i == cover.first  ? cover.firstWeight
                                     : i == cover.last ? cover.lastWeight
                                                       : cover.innerWeight;
        redBlue += (from[i * stride] & kRedBlue) * weight;
        green += (from[i * stride] & kGreen) / 256 * weight;
    }
    return (redBlue >> 8 & kRedBlue) | (green & kGreen);
}

void StretchRow(const Pixel* from, Pixel* to, const std::vector<Cover>& covers) {
    for (const Cover& cover : covers) {
        if (cover.last == cover.first)
            *to++ = from[cover.first];
        else if (cover.last == cover.first + 1)
            *to++ = Blend(from[cover.first], cover.firstWeight, from[cover.last], cover.lastWeight);
        else
            *to++ = Mean(from, 1, cover);
    }
}

void BlendRows(const Pixel* a, std::uint32_t weightA, const Pixel* b, std::uint32_t weightB, Pixel* to,
               int width) {
    for (int x = 0; x < width; ++x)
        to[x] = Blend(a[x], weightA, b[x], weightB);
}

} // namespace

void StretchPixels(const PixelBuffer& from, PixelBuffer& to) {
    if (from.Empty() || to.Empty())
        return;
    const std::vector<Cover> columns = CoverEdge(from.Width(), to.Width());
    const std::vector<Cover> rows = CoverEdge(from.Height(), to.Height());
    PixelBuffer wide(to.Width(), from.Height());
    for (int y = 0; y < from.Height(); ++y)
        StretchRow(from.Row(y), wide.Row(y), columns);

    for (int y = 0; y < to.Height(); ++y) {
        const Cover& cover = rows[static_cast<std::size_t>(y)];
        if (cover.last == cover.first)
            std::copy_n(wide.Row(cover.first), to.Width(), to.Row(y));
        else if (cover.last == cover.first + 1)
            BlendRows(wide.Row(cover.first), cover.firstWeight, wide.Row(cover.last), cover.lastWeight,
                      to.Row(y), to.Width());
        else
            for (int x = 0; x < to.Width(); ++x)
                to.At(x, y) = Mean(wide.Row(0) + x, to.Width(), cover);
    }
}

} // namespace tarveth
