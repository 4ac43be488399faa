// Captures, the jail, and which pieces may come back from it.
#pragma once

#include "engine/modPieces.h"

#include <cstdint>
#include <string_view>

namespace tarveth {

// Moves a piece from the board to the end of the jail.
void SendToJail(Game& game, int index);

// The slots of the jail from which a piece may come back after a capture; 0 where there is none.
struct ReturnCandidates {
    std::int16_t pawnSlot = 0;
    std::int16_t officerSlot = 0;
    bool Any() const { return pawnSlot != 0 || officerSlot != 0; }
    bool Both() const { return pawnSlot != 0 && officerSlot != 0; }
};

// What the side to move may bring back for having taken piece `captured`: nothing for one of its own side or
// a Pawn, a Pawn for an Officer, a Pawn or an Officer for a Master. The earliest-jailed of each kind.
ReturnCandidates FindReturnCandidates(const Game& game, int captured);

// The piece that comes back: the first of the side to move and the kind, by index, that is in the jail; 0 if
// none.
int PieceToReturn(const Game& game, std::int16_t kind);

// Takes an entry out of the jail by putting the last one in its place.
void RemoveJailEntry(Game& game, int slot);

// The sentence for a won game; empty while nobody has won. Where both have won, Blue's.
std::string_view VictorySentence(const Game& game);

} // namespace tarveth
