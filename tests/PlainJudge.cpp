#include "tests/PlainJudge.h"

#include "engine/rules/Game.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tarveth::test {

namespace {

// Gives the distance that a diagonal of this many squares counts: 1 to 4 for 1 to 4, and odd values for
// longer ones.
constexpr std::array<int, kBoardSize> kDiagonalCounts{0, 1, 2, 3, 4, 6, 6, 8};

int WhoIsOn(const Game& game, int column, int row) {
    for (int i = 1; i <= kPieces; ++i)
        if (game.Piece(i).X.ToDouble() == column && game.Piece(i).Y.ToDouble() == row)
            return i;
    return 0;
}

// Gives the number that is one step from a towards b.
int OneStep(int a, int b) {
    return a < b ? a + 1 : a > b ? a - 1 : a;
}

int JailedOf(const Game& game, int side, int kind) {
    int count = 0;
    for (std::size_t i = 1; i < game.JailTable.size(); ++i)
        if (game.JailTable[i].Side == side && game.JailTable[i].Kind == kind)
            ++count;
    return count;
}

bool LiesInZone(const PieceRecord& piece, Square square) {
    const int dX = std::abs(square.column - piece.X.ToInt16());
    const int dY = std::abs(square.row - piece.Y.ToInt16());
    if (piece.InJail() || piece.Kind == Pawn)
        return false;
    if (piece.Kind == Officer)
        return std::max(dX, dY) == 1;
    return (dX == 1 && dY == 1) || (dX == 2 && dY == 0) || (dX == 0 && dY == 2);
}

} // namespace

Verdict PlainlyJudgeMove(const Game& game, int piece, Square to) {
    const PieceRecord& mover = game.Piece(piece);
    const bool byOwner = mover.Side == game.Turn;
    const int limit = byOwner ? mover.MaxMove : mover.MaxCtlMove;
    const bool goesDiagonally = (byOwner ? mover.MaxDiag : mover.MaxCtlDiag) != 0;
    int column = mover.X.ToInt16();
    int row = mover.Y.ToInt16();

    int squares = std::abs(to.column - column) + std::abs(to.row - row);
    if (to.column != column && to.row != row) {
        if (!goesDiagonally)
            return {Refusal::NoDiagonal};
        if (std::abs(to.column - column) != std::abs(to.row - row))
            return {Refusal::BadDiagonal};
        squares = kDiagonalCounts.at(static_cast<std::size_t>(std::abs(to.column - column)));
    }
    if (squares > limit)
        return {Refusal::TooManySquares};

    const int stepX = OneStep(column, to.column) - column;
    const int stepY = OneStep(row, to.row) - row;
    int inTheWay = 0;
    for (int step = 1; step < squares; ++step) {
        column += stepX;
        row += stepY;
        if (WhoIsOn(game, column, row) != 0)
            inTheWay = WhoIsOn(game, column, row);
    }
    if (inTheWay != 0)
        return {Refusal::Blocked, inTheWay};
    if (mover.PrevX == to.column && mover.PrevY == to.row)
        return {Refusal::Reflection};

    const int victim = WhoIsOn(game, to.column, to.row);
    if (victim == 0)
        return {};
    const bool sameSide = game.Piece(victim).Side == mover.Side;
    const bool permitted = byOwner ? !sameSide || mover.Kind == Master : sameSide;
    return permitted ? Verdict{Refusal::None, 0, victim} : Verdict{Refusal::CantCapture};
}

PickVerdict PlainlyJudgePick(const Game& game, Square square) {
    const int piece = WhoIsOn(game, square.column, square.row);
    if (piece == 0)
        return {PickRefusal::Empty};
    if (game.Piece(piece).Side == game.Turn)
        return {PickRefusal::None, piece};
    bool outranked = false;
    for (int i = 1; i <= kPieces; ++i)
        outranked = outranked || (game.Piece(i).Side == game.Turn && LiesInZone(game.Piece(i), square) &&
                                  game.Piece(i).Kind < game.Piece(piece).Kind);
    if (!outranked)
        return {PickRefusal::NoZone};
    if (JailedOf(game, game.Turn, Pawn) == 6 || JailedOf(game, game.Turn, Officer) == 4)
        return {PickRefusal::LostPower};
    return {PickRefusal::None, piece};
}

} // namespace tarveth::test
