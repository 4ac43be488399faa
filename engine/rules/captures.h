// Captures, the jail, and the pieces that may return from it.
#pragma once

#include "engine/rules/modPieces.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarveth {

// Moves a piece from the board to the end of the jail.
void SendToJail(Game& game, int index);

// The result of a completed move.
struct MoveResult {
    int captured = 0;           // the captured piece, 0 for none
    bool mayEarnReturn = false; // true for a Master or an Officer: FindReturnCandidates is to be asked
    std::string message;        // the sentence about a capture; empty for a move that captures nothing
};

// Captures a piece for the side to move: sends it to the jail and resets Return to this capture.
MoveResult CapturePiece(Game& game, int captured);

// The jail entries from which a piece may return after a capture; 0 where there is none of the kind.
struct ReturnCandidates {
    std::int16_t pawnSlot = 0;
    std::int16_t officerSlot = 0;
    bool Any() const { return pawnSlot != 0 || officerSlot != 0; }
    bool Both() const { return pawnSlot != 0 && officerSlot != 0; }
};

// Gives what the side to move may bring back after it has captured piece `captured`: nothing for a piece of
// its own or a Pawn, a Pawn for an Officer, a Pawn or an Officer for a Master. Of each kind it is the entry
// that comes first in the jail.
ReturnCandidates FindReturnCandidates(const Game& game, int captured);

// Gives the piece that returns: the one with the lowest index of the side to move and the kind that is in the
// jail; 0 if there is none.
int PieceToReturn(const Game& game, std::int16_t kind);

// Removes an entry from the jail; the last entry takes its place.
void RemoveJailEntry(Game& game, int slot);

// Writes to Return that a piece of this kind, Officer or Pawn, is to return. The candidates must have a slot
// for it.
void DecideReturn(Game& game, const ReturnCandidates& candidates, std::int16_t kind);

// A return that the opponent's program has chosen.
struct ReturnChoice {
    int piece = 0; // index in PieceTable
    int slot = 0;  // index in JailTable
};

// Whether the last capture earns this return: the kind is due, the piece is the one that PieceToReturn gives,
// and the jail entry is one of its side and kind. The numbers may be any.
bool IsReturnDue(const Game& game, const ReturnChoice& choice);

// True when no piece stands on the pending square.
bool IsSquareFree(const Game& game);

// Puts the piece that Return names on a square and removes its entry from the jail. Gives the piece's index.
// If there is no such piece or entry or the square is taken, it gives 0 and changes nothing.
int ReturnPiece(Game& game, Square square);

// The winner and the sentence that announces them; NoSide and empty while nobody has won. If both sides have
// lost all that they need, Blue wins.
struct Victory {
    Side winner = NoSide;
    std::string_view sentence = {};
    friend bool operator==(const Victory&, const Victory&) = default;
};
Victory FindVictory(const Game& game);

} // namespace tarveth
