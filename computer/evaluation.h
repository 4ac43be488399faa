// How good a position is for the side to move, without looking ahead.
#pragma once

#include "computer/SearchPosition.h"

namespace tarveth::computer {

// Values are units of the evaluation. A won game is worth kWin less the turns until then.
inline constexpr int kWin = 30'000;
inline constexpr int kInfinite = 32'000;
inline constexpr int kSurelyWon = kWin - 1'000; // beyond: the end of the game has been seen

int Evaluate(const SearchPosition& position);

} // namespace tarveth::computer
