// A turn for a player who plays by chance but wants to see an end.
#pragma once

#include "engine/rules/turns.h"
#include "tests/Dice.h"

namespace tarveth {
struct Game;
}

namespace tarveth::test {

// One of the turns that there are, with a capture of the opponent's where there is one four times in five.
// Throws std::logic_error when there is none.
CompleteTurn PickTurn(const Game& game, Dice& dice);

} // namespace tarveth::test
