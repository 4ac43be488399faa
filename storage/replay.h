// Finds the positions that a game has gone through, which a saved game does not hold, from its history.
#pragma once

#include "engine/rules/pastpositions.h"

#include <string>

namespace tarveth {

struct Game;

struct Replay {
    PastPositions positions; // the position of the game itself among them
    std::string gap = {};    // why those before the first of them are not known; empty when all are
};

// Plays the history from the start of each layout by the rules, and takes the positions where it leads to the
// position of the game. Where it does not, as after a board that was received in the middle of a game, the
// moves are undone from the position of the game as far as they leave no choice. The game stands between two
// turns; its history may hold any text. Positions in the middle of a turn are left out. Where a history
// begins in the middle of a game, the square that the piece moved last was barred from then is not known.
Replay ReplayHistory(const Game& game);

} // namespace tarveth
