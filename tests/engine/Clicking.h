// Finds all complete turns by clicking on every pair of squares and looking at what the handlers do. It
// contains no rules of its own.
#pragma once

#include "engine/rules/perft.h"
#include "engine/rules/turns.h"
#include "tests/TestGame.h"

#include <functional>
#include <vector>

namespace tarveth::test {

class Clicking {
public:
    // Is called with each turn and the game after it, in which the other side is to move or the game is over.
    using Visit = std::function<void(const CompleteTurn& turn, const Game& after)>;

    // `start` must be in state kPickPiece.
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
