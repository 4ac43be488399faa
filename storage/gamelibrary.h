// The folder "games" beside the settings: every game that was played, as a saved game of its own, with its
// day and its players in its name.
#pragma once

#include "storage/keptgame.h"

#include <string>

namespace tarveth {

struct LibraryGame {
    KeptGame kept;
    std::string nickname; // of the player here, in a network game
    bool finished = true;
};

// The most games that the library holds. Each new one then takes the place of the oldest.
inline constexpr int kMostLibraryGames = 500;

// Adds the game and gives the path of its file. `folder` is that of the settings, with its separator. Throws
// platform::FileError; the game is then not in the library, and no other one has gone.
std::string AddToLibrary(const LibraryGame& game, const std::string& folder);

} // namespace tarveth
