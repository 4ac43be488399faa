// Every complete turn of the side to move, as clicking through the board would find them.
#pragma once

#include "engine/rules/modPieces.h"

#include <cstdint>
#include <vector>

namespace tarveth {

// One turn from its first click to the other side's: a move, what it takes, and what comes back for it.
struct CompleteTurn {
    int piece = 0;
    Square from, to;
    int captured = 0;            // the piece taken, 0 for none
    std::int16_t returnKind = 0; // PieceKind of the piece that comes back, 0 for none
    Square returnTo;             // where to
    bool own = true;             // moved by its owner; false under control
    bool wins = false;           // the capture ends the game; no return then

    friend bool operator==(const CompleteTurn&, const CompleteTurn&) = default;
};

// The turns in no particular order, none twice. A return is one turn for each kind and free square, the
// square that the mover leaves among them. A won game has none. Whatever state the game is in, the turns are
// those of state 1. Throws std::invalid_argument when CheckGame finds fault with the game.
std::vector<CompleteTurn> ListTurns(const Game& game);

} // namespace tarveth
