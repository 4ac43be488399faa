// Captures, the jail, and which pieces may come back from it.
#pragma once

#include "engine/rules/modPieces.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarveth {

// Moves a piece from the board to the end of the jail.
void SendToJail(Game& game, int index);

// What a completed move has done.
struct MoveResult {
    int captured = 0;           // the piece taken, 0 for none
    bool mayEarnReturn = false; // a Master or an Officer was taken: whether a return is due is to be checked
    std::string message;        // what to tell of it; empty for a move that takes nothing
};

// Takes a piece off the board for the side to move: it goes to the jail, and Return begins anew.
MoveResult CapturePiece(Game& game, int captured);

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

// Settles which kind comes back, Officer or Pawn; the candidates must hold a slot for it.
void DecideReturn(Game& game, const ReturnCandidates& candidates, std::int16_t kind);

// A return as another program names it.
struct ReturnChoice {
    int piece = 0; // index in PieceTable
    int slot = 0;  // index in JailTable
};

// Whether the last capture has earned just this return: the kind is due, the piece is the one that would come
// back, and the jail entry is one of its side and kind. Any numbers may be asked about.
bool IsReturnDue(const Game& game, const ReturnChoice& choice);

// True when no piece stands on the pending square.
bool IsSquareFree(const Game& game);

// Puts the piece that Return names on a free square and takes its entry out of the jail. The piece's index;
// 0, and nothing has changed, where there is no such piece or entry or the square is taken.
int ReturnPiece(Game& game, Square square);

// Who has won, and the sentence that says so. NoSide and empty while nobody has; where both have, Blue.
struct Victory {
    Side winner = NoSide;
    std::string_view sentence = {};
    friend bool operator==(const Victory&, const Victory&) = default;
};
Victory FindVictory(const Game& game);

} // namespace tarveth
