// Writes positions as SetPosition reads them.
#pragma once

#include <string>

namespace tarveth {

struct Game;

// Gives the text of a position between two turns: the turn, the pieces on the board, each with the square
// that it may not go back to, and the jail in its order. Where a piece in the jail was captured is no part of
// it.
std::string PositionText(const Game& game);

} // namespace tarveth
