// Plays the lines of a history on a game: forwards as the rules play them, and backwards.
#pragma once

#include "storage/notation.h"

namespace tarveth {

struct Game;

// Plays the line by the rules' own functions. The game must stand between two turns (kPickPiece), wait for a
// return (kReturnPiece) or be over (kGameOver), and stands so again afterwards. False, with the game
// unchanged, when the rules do not allow the line. A return that is due may be left out, as in a game that
// was saved or sent before the piece was placed; the next move may then be either side's.
bool PlayLine(Game& game, const HistoryLine& line);

// What follows from undoing a line.
enum class Undoing {
    Done,
    DoesNotFit,
    Ambiguous,        // it leaves open which piece of the jail it concerns
    BeforeDoesNotFit, // the move before it does not fit the position between the two
};

// Undoes a move. `before` is the move before it, whose piece may not go straight back; null for the first of
// the history. Only Done changes the game, which then is as before the move, its side about to pick a piece.
Undoing UndoMove(Game& game, const MoveLine& move, const MoveLine* before);

// Undoes a return, which `capture` has earned. Only Done changes the game, which then waits for the return:
// UndoMove of the capture is to follow. Where the piece had been captured is not known then: its column and
// row, and those of its jail entry, are kUnknownPlace until UndoMove finds the line of that capture.
Undoing UndoReturn(Game& game, const ReturnLine& line, const MoveLine& capture);

inline constexpr int kUnknownPlace = -9; // the negative of no column or row

} // namespace tarveth
