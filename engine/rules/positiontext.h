// Positions written as text, for tests, diagrams and tools.
#pragma once

#include "engine/rules/modPieces.h"

#include <string_view>

namespace tarveth {

struct Game;

// The square a text such as "4D" names (column, then row letter). Throws std::out_of_range when it is
// shorter.
Square SquareOf(std::string_view text);

// Puts a position into `game`, in state 1. Items are separated by '|':
//   "turn B"       the side to move (B or R)
//   "BM 4D"        a piece on the board: side, kind (M, O, P), square
//   "RP 4E<4F"     the same, having come from 4F with its last move
//   "jail BP BO"   pieces in the jail, in this order
// Pieces take the indices of their side and kind in order; those not named are neither on the board nor in
// the jail. Throws std::invalid_argument or std::out_of_range for what is no position.
void SetPosition(Game& game, std::string_view text);

} // namespace tarveth
