#include "engine/rules/positiontext.h"

#include "engine/rules/Game.h"

#include <sstream>
#include <stdexcept>
#include <string>

namespace tarveth {

namespace {

Side SideOf(char letter) {
    return letter == 'B' ? Blue : Red;
}

PieceKind KindOf(char letter) {
    return letter == 'M' ? Master : letter == 'O' ? Officer : Pawn;
}

// Hands out the indices of each side and kind in order.
class Indices {
public:
    int Next(const Game& game, char side, char kind) {
        for (int i = 1; i <= kPieces; ++i) {
            const PieceRecord& piece = game.Piece(i);
            if (piece.Side == SideOf(side) && piece.Kind == KindOf(kind) &&
                !used_[static_cast<std::size_t>(i)]) {
                used_[static_cast<std::size_t>(i)] = true;
                return i;
            }
        }
        throw std::invalid_argument("the position has too many pieces of a kind");
    }

private:
    std::array<bool, kPieces + 1> used_{};
};

void Stand(Game& game, int index, std::string_view where) {
    PieceRecord& piece = game.Piece(index);
    const Square square = SquareOf(where.substr(0, 2));
    const Square from = where.size() == 5 && where[2] == '<' ? SquareOf(where.substr(3)) : square;
    SetPieceSquare(game, index, square.column, square.row, static_cast<std::int16_t>(from.column),
                   static_cast<std::int16_t>(from.row));
    if (!square.OnBoard() || piece.Kind == 0)
        throw std::invalid_argument("not a square: " + std::string(where));
}

void ReadItem(Game& game, Indices& indices, const std::string& item) {
    std::istringstream words(item);
    std::string head;
    std::string word;
    words >> head >> word;
    if (head == "turn") {
        game.Turn = SideOf(word[0]);
    } else if (head == "jail") {
        do {
            PieceRecord& piece = game.Piece(indices.Next(game, word[0], word[1]));
            piece.X = piece.Y = -1;
            piece.PrevX = piece.PrevY = -1;
            game.JailTable.push_back(piece);
        } while (words >> word);
    } else {
        Stand(game, indices.Next(game, head[0], head[1]), word);
    }
}

} // namespace

Square SquareOf(std::string_view text) {
    return {text.at(0) - '0', text.at(1) - 'A' + 1};
}

void SetPosition(Game& game, std::string_view text) {
    CreatePieces(game);
    for (int i = 1; i <= kPieces; ++i)
        SetPieceSquare(game, i, -9, -9, -9, -9); // off the board, and not the negative of a square
    Indices indices;
    std::istringstream items{std::string(text)};
    for (std::string item; std::getline(items, item, '|');)
        ReadItem(game, indices, item);
    game.GameState = kPickPiece;
}

} // namespace tarveth
