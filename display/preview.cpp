#include "display/preview.h"

#include "display/stretch.h"

#include <algorithm>

namespace tarveth {

PixelBuffer Preview(const PixelBuffer& picture, int edge, Pixel ground) {
    PixelBuffer square(edge, edge, ground);
    if (picture.Empty())
        return square;
    PixelBuffer solid = picture; // stretched with its key colour, it would get a green edge
    for (int y = 0; y < solid.Height(); ++y)
        std::replace(solid.Row(y), solid.Row(y) + solid.Width(), kKeyGreen, ground);
    const int longer = std::max(picture.Width(), picture.Height());
    PixelBuffer fitted(std::max(1, picture.Width() * edge / longer),
                       std::max(1, picture.Height() * edge / longer));
    StretchPixels(solid, fitted);
    square.CopyFrom(fitted, (edge - fitted.Width()) / 2, (edge - fitted.Height()) / 2);
    return square;
}

PixelBuffer PieceBoard(const std::array<PixelBuffer, 4>& blue, const std::array<PixelBuffer, 4>& red,
                       int edge) {
    constexpr int kKinds = 3;
    PixelBuffer board(edge * kKinds, edge * 2);
    for (int kind = 1; kind <= kKinds; ++kind) {
        const Pixel above = kind % 2 == 0 ? Rgb(0, 0, 0) : Rgb(255, 255, 255);
        const Pixel below = above ^ Rgb(255, 255, 255);
        const auto i = static_cast<std::size_t>(kind);
        const int left = (kind - 1) * edge;
        board.CopyFrom(Preview(blue[i], edge, above), left, 0);
        board.CopyFrom(Preview(red[i], edge, below), left, edge);
    }
    return board;
}

} // namespace tarveth
