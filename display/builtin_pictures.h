// The piece pictures that are compiled into the program. They are used where the user has chosen no other and
// where a file is missing.
#pragma once

#include <cstdint>
#include <span>

namespace tarveth {

// Gives the built-in picture of a side (any value but Blue is Red) and a PieceKind, 64 pixels wide, as the
// bytes of a BMP file. Empty for an unknown kind. The bytes live as long as the program.
std::span<const std::uint8_t> BuiltinPicture(int side, int kind);

} // namespace tarveth
