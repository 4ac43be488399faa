// Random positions, which need not be reachable by play, for tests of invariants.
#pragma once

#include "engine/rules/Game.h"
#include "tests/Dice.h"

namespace tarveth::test {

// Gives a sound game in state kPickPiece that is not won. Any number of pieces are in the jail, in any order;
// sometimes several pieces have previous squares, and some have unusual limits.
Game RandomPosition(Dice& dice);

// Gives such a game in which all pieces have the standard limits and at most one piece has a previous square.
Game RandomOrdinaryPosition(Dice& dice);

} // namespace tarveth::test
