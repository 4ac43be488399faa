#include "engine/rules/writeposition.h"

#include "engine/rules/Game.h"

namespace tarveth {

namespace {

std::string SquareName(Square square) {
    return {static_cast<char>('0' + square.column), static_cast<char>('@' + square.row)};
}

std::string PieceName(const PieceRecord& piece) {
    return {SideName(piece.Side).front(), KindName(piece.Kind).front()};
}

// Gives the square of a piece on the board, and the one that it may not go back to.
std::string PlaceText(const PieceRecord& piece) {
    const Square previous{piece.PrevX, piece.PrevY};
    const bool barred = previous.OnBoard() && !piece.StandsOn(previous);
    return SquareName({piece.X.ToInt16(), piece.Y.ToInt16()}) + (barred ? '<' + SquareName(previous) : "");
}

} // namespace

std::string PositionText(const Game& game) {
    std::string text = std::string("turn ") + SideName(game.Turn).front();
    for (int i = 1; i <= game.PieceCount(); ++i)
        if (!game.Piece(i).InJail())
            text += " | " + PieceName(game.Piece(i)) + ' ' + PlaceText(game.Piece(i));
    for (int slot = 1; slot <= game.JailCount(); ++slot)
        text += (slot == 1 ? " | jail " : " ") + PieceName(game.Jailed(slot));
    return text;
}

} // namespace tarveth
