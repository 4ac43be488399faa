// The file that keeps a game under way, so that nothing that ends the program loses it.
//
// It is a saved game with lines of its own behind the history, which readers of saved games pass over: when
// and under which name the game was, against whom, and a checksum of all that stands before it. The reader
// refuses a file that is not, byte for byte, as it was written.
#pragma once

#include "engine/rules/Game.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarveth {

struct KeptGame {
    Game game;                  // between two turns
    std::int64_t moment = 0;    // of its last turn, in seconds since 1970
    std::string fileName;       // the full path of the file it was last loaded from or saved to; may be empty
    std::string opponent;       // of a network game, in UTF-8; empty for a game at one screen
    std::int16_t side = NoSide; // the side that was played here, in a network game

    friend bool operator==(const KeptGame&, const KeptGame&) = default;
};

// Give the bytes of the file, and read them. ParseKeptGame throws platform::FileError, with nameForErrors as
// its path, for a file that is damaged.
std::string KeptGameBytes(const KeptGame& kept);
KeptGame ParseKeptGame(std::string_view bytes, const std::string& nameForErrors);

// Write and read the file. Both throw platform::FileError.
void WriteKeptGame(const KeptGame& kept, const std::string& path);
KeptGame ReadKeptGame(const std::string& path);

} // namespace tarveth
