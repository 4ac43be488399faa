#include "display/preview.h"

#include "display/stretch.h"
#include "engine/rules/modPieces.h"

#include <algorithm>

namespace tarveth {

PixelBuffer Preview(const PixelBuffer& picture, int edge, Pixel ground) {
    PixelBuffer square(edge, edge, ground);
    if (picture.Empty())
        return square;
    PixelBuffer solid = picture; // without the key colour, which stretching would blend into the edges
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
                       int edge, Pixel black, Pixel white) {
    PixelBuffer board(edge * Pawn, edge * 2);
    for (int kind = Master; kind <= Pawn; ++kind) {
        const Pixel above = kind % 2 == 0 ? black : white;
        const Pixel below = kind % 2 == 0 ? white : black;
        const auto i = static_cast<std::size_t>(kind);
        const int left = (kind - Master) * edge;
        board.CopyFrom(Preview(blue[i], edge, above), left, 0);
        board.CopyFrom(Preview(red[i], edge, below), left, edge);
    }
    return board;
}

} // namespace tarveth
