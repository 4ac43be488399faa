// Finds every complete turn the slow way: by clicking on all pairs of squares and playing on from what the
// handlers make of it. Knows no rule of its own.
#pragma once

#include "engine/rules/perft.h"
#include "engine/rules/turns.h"
#include "tests/TestGame.h"

#include <functional>
#include <vector>

namespace tarveth::test {

class Clicking {
public:
    // Called with each turn and the game after it, the other side to move or the game over.
    using Visit = std::function<void(const CompleteTurn& turn, const Game& after)>;

    // `start` must be in state 1.
    void ForEachTurn(const Game& start, const Visit& visit);
    std::vector<CompleteTurn> ListTurns(const Game& start);
    TurnCounts CountTurns(const Game& start, int depth);

private:
    void ClickOn(const Game& game, Square square);
    void PassOn(const Game& game);
    void FinishTurn(CompleteTurn turn, const Visit& visit);
    bool PlaceReturns(CompleteTurn turn, int choice, const Game& captured, const Visit& visit);

    TestGame table_;
};

} // namespace tarveth::test
