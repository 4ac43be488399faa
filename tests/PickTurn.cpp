#include "tests/PickTurn.h"

#include "engine/rules/Game.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace tarveth::test {

CompleteTurn PickTurn(const Game& game, Dice& dice) {
    const std::vector<CompleteTurn> turns = ListTurns(game);
    if (turns.empty())
        throw std::logic_error("there is no turn");
    const auto takesOpponent = [&](const CompleteTurn& turn) {
        return turn.captured != 0 && game.Piece(turn.captured).Side != game.Turn;
    };
    const CompleteTurn& first = dice.OneOf(turns);
    if (takesOpponent(first) || dice.Percent(20))
        return first;
    std::vector<CompleteTurn> captures;
    std::copy_if(turns.begin(), turns.end(), std::back_inserter(captures), takesOpponent);
    return captures.empty() ? first : dice.OneOf(captures);
}

} // namespace tarveth::test
