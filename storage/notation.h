// The game's record: one line of text for each move, capture and return.
#pragma once

#include "engine/rules/modPieces.h"

#include <string>

namespace tarveth {

// Gives column number and row letter, as in "4D". Rows outside 1 to 8 give the characters before "A" and
// after "H".
std::string SquareText(int column, int row);

// Gives the line for the last move of a piece, as in "R:RO 5C-4D".
std::string MoveText(const Game& game, int index);

// Gives the text for a captured piece, as in "cBP".
std::string CaptureText(const Game& game, int index);

// Append one line to the game's history. A return is one of a piece of the kind in ReturnKind: "  BP r2G".
void HistoryAddMove(Game& game, int index);
void HistoryAddCapture(Game& game, int mover, int captured);
void HistoryAddReturn(Game& game, Square square);

} // namespace tarveth
