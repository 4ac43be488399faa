#include "net/boardtransfer.h"

#include "engine/rules/Game.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tarveth {

namespace {

// Numbers from field `first` on; nothing if one of them is none.
template <std::size_t Count>
std::optional<std::array<std::int16_t, Count>> Numbers(const GameFields& fields, std::size_t first) {
    std::array<std::int16_t, Count> numbers{};
    for (std::size_t i = 0; i < Count; ++i) {
        const auto number = fields.Number(first + i);
        if (!number)
            return std::nullopt;
        numbers[i] = *number;
    }
    return numbers;
}

// Of a board or jail; negative in the jail, 0 in the elements that hold no piece.
std::optional<std::int16_t> Coordinate(const GameFields& fields, std::size_t field) {
    return fields.Number(field, -kBoardSize, kBoardSize);
}

} // namespace

std::string PieceMessage(std::string_view head, std::size_t index, const PieceRecord& piece) {
    std::string message(head);
    message += std::to_string(index);
    for (const int value : {piece.Side, piece.Kind, piece.X.ToInt16(), piece.Y.ToInt16(), piece.PrevX,
                            piece.PrevY, piece.MaxMove, piece.MaxDiag, piece.MaxCtlMove, piece.MaxCtlDiag})
        message += ',' + std::to_string(value);
    return message + ')';
}

bool ReadPieceSquare(Game& game, const GameFields& fields) {
    const auto index = fields.Number(1, 0, game.PieceCount());
    const auto x = Coordinate(fields, 4);
    const auto y = Coordinate(fields, 5);
    const auto prev = Numbers<2>(fields, 6);
    if (!index || !x || !y || !prev)
        return false;
    SetPieceSquare(game, *index, *x, *y, prev->at(0), prev->at(1));
    return true;
}

bool ReadPieceLimits(Game& game, const GameFields& fields) {
    const auto index = fields.Number(1, 1, game.PieceCount());
    const auto values = Numbers<6>(fields, 2);
    if (!index || !values)
        return false;
    const auto [side, kind, maxMove, maxDiag, maxCtlMove, maxCtlDiag] = *values;
    SetPiece(game, *index, side, kind, maxMove, maxDiag, maxCtlMove, maxCtlDiag);
    return true;
}

bool ReadJailEntry(Game& game, const GameFields& fields) {
    const auto slot = fields.Number(1, 0, kPieces);
    const auto x = Coordinate(fields, 4);
    const auto y = Coordinate(fields, 5);
    const auto owner = Numbers<2>(fields, 2);
    const auto rest = Numbers<6>(fields, 6);
    if (!slot || !x || !y || !owner || !rest)
        return false;
    PieceRecord jailed;
    jailed.X = *x;
    jailed.Y = *y;
    std::tie(jailed.Side, jailed.Kind) = std::tuple_cat(*owner);
    std::tie(jailed.PrevX, jailed.PrevY, jailed.MaxMove, jailed.MaxDiag, jailed.MaxCtlMove,
             jailed.MaxCtlDiag) = std::tuple_cat(*rest);
    const auto place = static_cast<std::size_t>(*slot);
    game.JailTable.resize(std::max(game.JailTable.size(), place + 1));
    game.JailTable[place] = jailed;
    return true;
}

bool ReadTurn(Game& game, const GameFields& fields) {
    const auto side = fields.Number(1, Blue, Red);
    game.Turn = side.value_or(game.Turn);
    return side.has_value();
}

bool IsFreshBoard(const Game& board) {
    const auto square = [](const PieceRecord& piece) { return std::pair(piece.X, piece.Y); };
    const auto standsAs = [&](std::int16_t layout) {
        Game fresh;
        CreatePieces(fresh);
        PlacePieces(fresh, layout);
        return std::ranges::equal(board.PieceTable, fresh.PieceTable, {}, square, square);
    };
    return board.Turn == Blue && (standsAs(kImperialBoard) || standsAs(kDraumeCrownBoard));
}

Game BoardToFill(const Game& game) {
    Game board;
    CreatePieces(board);
    for (int i = 1; i <= game.PieceCount() && i <= board.PieceCount(); ++i) {
        const PieceRecord& piece = game.Piece(i);
        SetPieceSquare(board, i, piece.X, piece.Y, piece.PrevX, piece.PrevY);
    }
    board.Turn = game.Turn;
    return board;
}

} // namespace tarveth
