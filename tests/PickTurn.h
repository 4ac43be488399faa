// Picks turns for random games that come to an end.
#pragma once

#include "engine/rules/turns.h"
#include "tests/Dice.h"

namespace tarveth {
struct Game;
}

namespace tarveth::test {

// Picks one of the legal turns at random; four times in five it is a capture of an opposing piece, if there
// is one. Throws std::logic_error when there is no legal turn.
CompleteTurn PickTurn(const Game& game, Dice& dice);

} // namespace tarveth::test
