#include "engine/rules/turns.h"

#include "engine/rules/CompactGame.h"

namespace tarveth {

std::vector<CompleteTurn> ListTurns(const Game& game) {
    std::vector<CompleteTurn> turns;
    const PieceFacts facts(game);
    const CompactGame position(game, facts);
    if (position.IsOver())
        return turns;
    position.ForEachTurn([&](const CompactTurn& turn) {
        const Square returnTo = turn.returnTo == kNoSquare ? Square{} : NumberedSquare(turn.returnTo);
        turns.push_back({turn.piece, NumberedSquare(turn.from), NumberedSquare(turn.to), turn.captured,
                         turn.returnKind, returnTo, turn.own, turn.endsGame});
    });
    return turns;
}

} // namespace tarveth
