// One line of text a move, a capture, a return: the history list is the game's record.
#pragma once

#include "engine/rules/modPieces.h"

#include <string>

namespace tarveth {

// Column number and row letter, "4D". Rows outside 1 to 8 give the characters before "A" and after "H".
std::string SquareText(int column, int row);

// The last move of a piece that has just moved, "R:RO 5C-4D".
std::string MoveText(const Game& game, int index);

// A captured piece, "cBP".
std::string CaptureText(const Game& game, int index);

// Each appends one line to the game's history.
void HistoryAddMove(Game& game, int index);
void HistoryAddCapture(Game& game, int mover, int captured);
void HistoryAddReturn(Game& game, Square square); // of a piece of ReturnKind: "  BP r2G"

} // namespace tarveth
