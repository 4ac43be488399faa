#include "storage/notation.h"

#include "engine/rules/Game.h"

namespace tarveth {

namespace {

// A turn, a piece's side and a kind are named by the first letters of their words.
char SideLetter(std::int16_t side) {
    return SideName(side).front();
}

char KindLetter(std::int16_t kind) {
    return KindName(kind).front();
}

} // namespace

std::string SquareText(int column, int row) {
    return std::to_string(column) + static_cast<char>('@' + row); // '@' comes right before 'A'
}

std::string MoveText(const Game& game, int index) {
    const PieceRecord& piece = game.Piece(index);
    return std::string{SideLetter(game.Turn), ':', SideLetter(piece.Side), KindLetter(piece.Kind), ' '} +
           SquareText(piece.PrevX, piece.PrevY) + '-' + SquareText(piece.X.ToInt16(), piece.Y.ToInt16());
}

std::string CaptureText(const Game& game, int index) {
    const PieceRecord& piece = game.Piece(index);
    return {'c', SideLetter(piece.Side), KindLetter(piece.Kind)};
}

void HistoryAddMove(Game& game, int index) {
    game.lstHistory.push_back(MoveText(game, index));
}

void HistoryAddCapture(Game& game, int mover, int captured) {
    game.lstHistory.push_back(MoveText(game, mover) + ' ' + CaptureText(game, captured));
}

void HistoryAddReturn(Game& game, Square square) {
    // Two blanks stand where a move has its side and colon, so that the kinds line up in the list.
    game.lstHistory.push_back("  " + std::string{SideLetter(game.Turn)} +
                              std::string(game.Return.ReturnName().substr(0, 1)) + " r" +
                              SquareText(square.column, square.row));
}

} // namespace tarveth
