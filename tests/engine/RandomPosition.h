// Positions that no game need ever have led to, for tests of what must hold in all of them.
#pragma once

#include "engine/rules/Game.h"
#include "tests/Dice.h"

namespace tarveth::test {

// A sound game in state 1, not yet won: any number of pieces in the jail, in any order; now and then previous
// squares of several pieces at once, and pieces of unusual limits.
Game RandomPosition(Dice& dice);

// The same with the standard limits and at most the piece moved last barred from its previous square.
Game RandomOrdinaryPosition(Dice& dice);

} // namespace tarveth::test
