// A second, slow implementation of the rules, written independently of the engine's: the two must agree on
// every square.
#pragma once

#include "engine/rules/moves.h"
#include "engine/rules/zones.h"

namespace tarveth::test {

// Give the results that JudgeMove and JudgePick must give.
Verdict PlainlyJudgeMove(const Game& game, int piece, Square to);
PickVerdict PlainlyJudgePick(const Game& game, Square square);

} // namespace tarveth::test
