// A second, slow reading of the rules, written without a look at the engine's: the two must agree on every
// square.
#pragma once

#include "engine/rules/moves.h"
#include "engine/rules/zones.h"

namespace tarveth::test {

// What JudgeMove and JudgePick should say.
Verdict PlainlyJudgeMove(const Game& game, int piece, Square to);
PickVerdict PlainlyJudgePick(const Game& game, Square square);

} // namespace tarveth::test
