// Judges whether a piece may move to a square, which only reads the game, and makes the move.
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
    int captured = 0; // None: the piece that will be captured, 0 when the square is free
    friend bool operator==(const Verdict&, const Verdict&) = default;
};

// Judges the move of piece `index`, which must stand on the board, to another square of it. The piece moves
// under its own limits when it belongs to Turn, otherwise under control. The first rule broken decides.
Verdict JudgeMove(const Game& game, int index, Square to);

// Gives the sentence for a refused move; empty for Refusal::None.
std::string RefusalText(const Game& game, const Verdict& verdict);

// Gives the number of squares that a diagonal counts: 1 to 4 for diagonals of 1 to 4 steps. For longer ones
// the result is what the formula gives (6 for 5 and 6 steps, 8 for 7); no piece of the game moves that far.
std::int16_t DiagonalDistance(int dX, int dY);

// The two halves of a move that JudgeMove allows; between them the move may be animated. BeginMove stores the
// square that the piece leaves. FinishMove puts the piece on `to`, sends piece `captured` (0 for none) to the
// jail, and gives the result.
void BeginMove(Game& game, int index);
MoveResult FinishMove(Game& game, int index, Square to, int captured);

// Clears the previous square of every piece but `index`, so that the Rule of Reflection bars only the piece
// moved last from going straight back.
void ClearReflection(Game& game, int index);

} // namespace tarveth
