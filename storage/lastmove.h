// What the last turn has done to the board, as far as the history tells.
#pragma once

#include "engine/rules/MoveTrace.h"

#include <string>
#include <vector>

namespace tarveth {

// Reads the end of a history: the last move, and the return after it. Gives no squares for an empty history
// and for lines that are no moves, as a saved game may hold any text.
MoveTrace ReadLastMove(const std::vector<std::string>& history);

} // namespace tarveth
