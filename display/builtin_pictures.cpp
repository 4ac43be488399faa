// The built-in pictures are byte arrays that the build makes from the files in pics/64.
#include "display/builtin_pictures.h"

#include "builtin_pictures_data.h"

#include <array>
#include <cstddef>

namespace tarveth {

namespace {

using Picture = std::span<const std::uint8_t>;

constexpr std::array<Picture, 3> kBluePictures = {kBlue1, kBlue2, kBlue3};
constexpr std::array<Picture, 3> kRedPictures = {kRed1, kRed2, kRed3};

} // namespace

std::span<const std::uint8_t> BuiltinPicture(int side, int kind) {
    if (kind < 1 || kind > 3) {
        return {};
    }
    const auto& pictures = side == 1 ? kBluePictures : kRedPictures;
    return pictures[static_cast<std::size_t>(kind - 1)];
}

} // namespace tarveth
