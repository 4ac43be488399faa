#include "engine/rules/moves.h"

#include "engine/rules/Game.h"
#include "engine/rules/captures.h"

#include <cmath>
#include <cstdlib>

namespace tarveth {

namespace {

constexpr int Sign(int value) {
    return (value > 0) - (value < 0);
}

// Gives the piece in the way that is nearest to the destination; 0 when the way is free.
int FindBlocker(const Game& game, Square from, Square step, int distance) {
    int blocker = 0;
    for (int k = 1; k < distance; ++k)
        if (const int piece = PieceOn(game, {from.column + k * step.column, from.row + k * step.row}))
            blocker = piece;
    return blocker;
}

// A piece moved under control captures only pieces of its own side. Of the mover's own pieces, only a Master
// may capture a piece of its own side.
bool MayCapture(const PieceRecord& mover, const PieceRecord& occupant, bool ownMove) {
    if (mover.Side != occupant.Side)
        return ownMove;
    return !ownMove || mover.Kind == Master;
}

} // namespace

std::int16_t DiagonalDistance(int dX, int dY) {
    // The single precision of e matters: 1.4f lies just under 1.4, so that one step gives 0.999… and
    // counts 1.
    const double length = std::sqrt(static_cast<double>(dX * dX + dY * dY));
    const auto e = static_cast<float>(std::floor(length * 10.0) / 10.0);
    return static_cast<std::int16_t>(std::floor(static_cast<double>(e) / 1.4) + 1.0);
}

Verdict JudgeMove(const Game& game, int index, Square to) {
    const PieceRecord& mover = game.Piece(index);
    const bool ownMove = mover.Side == game.Turn;
    const int straightLimit = ownMove ? mover.MaxMove : mover.MaxCtlMove;
    const int diagonalLimit = ownMove ? mover.MaxDiag : mover.MaxCtlDiag;

    const Square from{mover.X.ToInt16(), mover.Y.ToInt16()};
    const int dX = to.column - from.column;
    const int dY = to.row - from.row;
    const bool diagonal = dX != 0 && dY != 0;
    if (diagonal && diagonalLimit == 0)
        return {Refusal::NoDiagonal};
    if (diagonal && std::abs(dX) != std::abs(dY))
        return {Refusal::BadDiagonal};

    // The diagonal limit only allows diagonals; the straight limit bounds their length as well.
    const int distance = diagonal ? DiagonalDistance(dX, dY) : std::abs(dX) + std::abs(dY);
    if (distance > straightLimit)
        return {Refusal::TooManySquares};
    if (const int blocker = FindBlocker(game, from, {Sign(dX), Sign(dY)}, distance))
        return {Refusal::Blocked, blocker};
    if (to == Square{mover.PrevX, mover.PrevY})
        return {Refusal::Reflection};

    const int occupant = PieceOn(game, to);
    if (occupant != 0 && !MayCapture(mover, game.Piece(occupant), ownMove))
        return {Refusal::CantCapture};
    return {Refusal::None, 0, occupant};
}

std::string RefusalText(const Game& game, const Verdict& verdict) {
    switch (verdict.refusal) {
    case Refusal::None:
        return {};
    case Refusal::NoDiagonal:
        return "Illegal move (diagonal not allowed).";
    case Refusal::BadDiagonal:
        return "Illegal move (bad diagonal).";
    case Refusal::TooManySquares:
        return "Illegal move (too many squares).";
    case Refusal::Blocked: {
        const PieceRecord& blocker = game.Piece(verdict.blocker);
        return "There is a " + std::string(SideName(blocker.Side)) + ' ' +
               std::string(KindName(blocker.Kind)) + " blocking your move.";
    }
    case Refusal::Reflection:
        return "Illegal move (Rule of Reflection).";
    case Refusal::CantCapture:
        return "You can't capture that piece.";
    }
    return {};
}

void ClearReflection(Game& game, int index) {
    for (int i = 1; i <= game.PieceCount(); ++i) {
        if (i == index)
            continue;
        PieceRecord& piece = game.Piece(i);
        piece.PrevX = piece.X.ToInt16();
        piece.PrevY = piece.Y.ToInt16();
    }
}

void BeginMove(Game& game, int index) {
    PieceRecord& piece = game.Piece(index);
    piece.PrevX = piece.X.ToInt16();
    piece.PrevY = piece.Y.ToInt16();
}

MoveResult FinishMove(Game& game, int index, Square to, int captured) {
    PieceRecord& piece = game.Piece(index);
    piece.X = to.column;
    piece.Y = to.row;
    MoveResult result;
    if (captured != 0)
        result = CapturePiece(game, captured);
    ClearReflection(game, index);
    return result;
}

} // namespace tarveth
