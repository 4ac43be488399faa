// Checks the invariants that hold for every game between two passes.
#pragma once

#include <string>

namespace tarveth {

struct Game;

// Gives a sentence about the first invariant that is broken; empty when all hold. There are 26 pieces of
// known kinds and sides, each alone on its square or off the board. For each jail entry there is a piece off
// the board of the same side and kind. It is a side's turn, and the state, the selected piece and the pending
// square exist. A piece that is being animated may stand between squares.
std::string CheckGame(const Game& game);

} // namespace tarveth
