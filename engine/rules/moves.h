// Whether a piece may move to a square, and the move itself. Judging reads only.
#pragma once

#include "engine/rules/captures.h"
#include "engine/rules/modPieces.h"

#include <cstdint>
#include <string>

namespace tarveth {

enum class Refusal { None, NoDiagonal, BadDiagonal, TooManySquares, Blocked, Reflection, CantCapture };

struct Verdict {
    Refusal refusal = Refusal::None;
    int blocker = 0;  // Blocked: the piece in the way nearest the destination
    int captured = 0; // None: the piece taken, 0 when the square is free
    friend bool operator==(const Verdict&, const Verdict&) = default;
};

// Judges the move of piece `index`, which must stand on the board, to another square of it. The piece moves
// under its own limits when it belongs to Turn, otherwise under control. The first rule broken decides.
Verdict JudgeMove(const Game& game, int index, Square to);

// The sentence for a refused move; empty for Refusal::None.
std::string RefusalText(const Game& game, const Verdict& verdict);

// The squares a diagonal offset counts: 1 to 4 for true diagonals of 1 to 4 steps. Longer ones keep what the
// formula gives (5 steps count 6, 6 count 6, 7 count 8); no piece of the standard game goes that far.
std::int16_t DiagonalDistance(int dX, int dY);

// The two halves of a move that JudgeMove allows, between which the piece may be shown on its way. BeginMove
// remembers the square that the piece leaves. FinishMove puts the piece on `to` and piece `captured` (0 for
// none) in the jail, and says what that has done.
void BeginMove(Game& game, int index);
MoveResult FinishMove(Game& game, int index, Square to, int captured);

// Makes every piece but `index` forget where it came from, so that only the piece moved last can be barred
// from going straight back.
void ClearReflection(Game& game, int index);

} // namespace tarveth
