// A game as it stands between two turns.
#pragma once

#include "engine/rules/Game.h"

namespace tarveth {

// Gives the game with nothing picked, no square waiting and no return due, the side to move about to pick a
// piece. The game given stands between two turns or has a piece picked.
Game AtRest(Game game);

} // namespace tarveth
