// What must hold of every game at rest between two passes, whatever was clicked or loaded.
#pragma once

#include <string>

namespace tarveth {

struct Game;

// The first thing that is wrong with the tables or with what refers to them; empty when all holds: 26 pieces
// of known kinds and sides, each alone on its square or off the board; for each jail entry a piece off the
// board of its side and kind; a side to move; a selection, a square waiting and a state that exist. A piece
// that is being animated may stand between squares.
std::string CheckGame(const Game& game);

} // namespace tarveth
