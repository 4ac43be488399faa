// Positions written as text, for tests, diagrams and tools.
#pragma once

#include "engine/rules/modPieces.h"

#include <string_view>

namespace tarveth {

struct Game;

// Gives the square that a text such as "4D" names: column, then row letter. Throws std::out_of_range when the
// text is shorter.
Square SquareOf(std::string_view text);

// Sets up a position in `game`, in state kPickPiece. Items are separated by '|':
//   "turn B"       the side to move (B or R)
//   "BM 4D"        a piece on the board: side, kind (M, O, P), square
//   "RP 4E<4F"     a piece on 4E that came from 4F with its last move
//   "jail BP BO"   pieces in the jail, in this order
// Pieces of a side and kind take the indices of that side and kind in order. Pieces that are not named are
// neither on the board nor in the jail. Throws std::invalid_argument or std::out_of_range for a text that is
// no position.
void SetPosition(Game& game, std::string_view text);

} // namespace tarveth
