#include "display/stretch.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tarveth {

namespace {

constexpr std::uint32_t kWhole = 256; // the sum of the weights in one target pixel

// The source pixels that one target pixel covers along an edge.
struct Cover {
    int first = 0;
    int count = 0;
    std::size_t weights = 0; // index of their first weight in Edge::weights
};

struct Edge {
    std::vector<Cover> covers; // by target pixel
    std::vector<std::uint32_t> weights;

    const std::uint32_t* WeightsOf(const Cover& cover) const { return weights.data() + cover.weights; }
};

// Computed in integers, so that adjacent pixels meet exactly and every system gets the same picture. In the
// unit used, a target pixel is fromLength long and a source pixel toLength.
void AddCover(Edge& edge, std::int64_t start, std::int64_t fromLength, std::int64_t toLength) {
    Cover cover{static_cast<int>(start / toLength), 0, edge.weights.size()};
    const std::int64_t end = start + fromLength;
    std::uint32_t used = 0;
    for (std::int64_t reached = cover.first * toLength; reached < end; ++cover.count) {
        reached += toLength;
        // The running sum is rounded, not each weight, so that the weights add up to kWhole.
        const std::int64_t covered = std::min(reached, end) - start;
        const auto upToHere = static_cast<std::uint32_t>((covered * kWhole + fromLength / 2) / fromLength);
        edge.weights.push_back(upToHere - used);
        used = upToHere;
    }
    edge.covers.push_back(cover);
}

Edge CoverEdge(int fromLength, int toLength) {
    Edge edge;
    edge.covers.reserve(static_cast<std::size_t>(toLength));
    for (std::int64_t i = 0; i < toLength; ++i)
        AddCover(edge, i * fromLength, fromLength, toLength);
    return edge;
}

// Red and blue are summed in one word, green in another (SIMD within a register).
constexpr Pixel kRedBlue = 0xFF00FF;
constexpr Pixel kGreen = 0x00FF00;
constexpr Pixel kRedBlueHalf = 0x800080; // for rounding
constexpr Pixel kGreenHalf = 0x008000;

constexpr Pixel Rounded(Pixel redBlue, Pixel green) {
    return ((redBlue + kRedBlueHalf) >> 8 & kRedBlue) | ((green + kGreenHalf) >> 8 & kGreen);
}

constexpr Pixel Blend(Pixel a, std::uint32_t weightA, Pixel b, std::uint32_t weightB) {
    return Rounded((a & kRedBlue) * weightA + (b & kRedBlue) * weightB,
                   (a & kGreen) * weightA + (b & kGreen) * weightB);
}

// Gives the weighted mean of `count` pixels that are `stride` apart.
Pixel Mean(const Pixel* from, std::ptrdiff_t stride, const std::uint32_t* weights, int count) {
    Pixel redBlue = 0;
    Pixel green = 0;
    for (int i = 0; i < count; ++i) {
        redBlue += (from[i * stride] & kRedBlue) * weights[i];
        green += (from[i * stride] & kGreen) * weights[i];
    }
    return Rounded(redBlue, green);
}

// Gives the weighted mean of the covered rows, computed in `mixed`; a single row is given as it is.
const Pixel* MixRows(const PixelBuffer& from, const Cover& cover, const std::uint32_t* weights,
                     std::vector<Pixel>& mixed) {
    const Pixel* a = from.Row(cover.first);
    if (cover.count == 1)
        return a;
    if (cover.count == 2) {
        const Pixel* b = from.Row(cover.first + 1);
        for (std::size_t x = 0; x < mixed.size(); ++x)
            mixed[x] = Blend(a[x], weights[0], b[x], weights[1]);
    } else {
        for (std::size_t x = 0; x < mixed.size(); ++x)
            mixed[x] = Mean(a + x, from.Width(), weights, cover.count);
    }
    return mixed.data();
}

void StretchRow(const Pixel* from, Pixel* to, const Edge& columns) {
    const std::uint32_t* weights = columns.weights.data();
    for (const Cover& cover : columns.covers) {
        const Pixel* covered = from + cover.first;
        if (cover.count == 1)
            *to++ = *covered;
        else if (cover.count == 2)
            *to++ = Blend(covered[0], weights[0], covered[1], weights[1]);
        else
            *to++ = Mean(covered, 1, weights, cover.count);
        weights += cover.count;
    }
}

} // namespace

void StretchPixels(const PixelBuffer& from, PixelBuffer& to) {
    if (from.Empty() || to.Empty())
        return;
    if (from.Width() == to.Width() && from.Height() == to.Height()) {
        to.CopyFrom(from, 0, 0);
        return;
    }
    const Edge columns = CoverEdge(from.Width(), to.Width());
    const Edge rows = CoverEdge(from.Height(), to.Height());
    std::vector<Pixel> mixed(static_cast<std::size_t>(from.Width()));
    int alone = -1; // the source row if the target row above is a copy of a single one, otherwise -1
    for (int y = 0; y < to.Height(); ++y) {
        const Cover& cover = rows.covers[static_cast<std::size_t>(y)];
        if (cover.count == 1 && cover.first == alone)
            std::copy_n(to.Row(y - 1), to.Width(), to.Row(y));
        else
            StretchRow(MixRows(from, cover, rows.WeightsOf(cover), mixed), to.Row(y), columns);
        alone = cover.count == 1 ? cover.first : -1;
    }
}

} // namespace tarveth
