// The sentence near the board: who the player is, and what is wanted now.
#pragma once

#include "engine/NetGame.h"

#include <string>

namespace tarveth {

struct Game;

// Gives the sentence for the game as it is, such as "You play Red. Blue is to move." It is empty in the
// states that a turn only passes through, where what was said before still holds.
std::string WhatIsAsked(const Game& game, const NetGame& net);

} // namespace tarveth
