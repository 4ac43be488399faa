// The piece pictures that the program carries in itself, for when no other is chosen or a file is missing.
#pragma once

#include <cstdint>
#include <span>

namespace tarveth {

// The built-in 64-pixel picture of a side (1 Blue, any other Red) and kind (1 Master, 2 Officer, 3 Pawn), as
// the bytes of a BMP file. Empty for a kind outside 1 to 3. The bytes live as long as the program.
std::span<const std::uint8_t> BuiltinPicture(int side, int kind);

} // namespace tarveth
