#include "engine/rules/modPieces.h"

#include "engine/rules/Game.h"

#include <algorithm>

namespace tarveth {

namespace {

struct KindLimits {
    std::int16_t maxMove, maxDiag, maxCtlMove, maxCtlDiag;
};

// Indexed by kind; element 0 is unused.
constexpr std::array<KindLimits, 4> kLimits{{{}, {3, 0, 3, 0}, {2, 0, 2, 0}, {1, 1, 3, 3}}};

constexpr std::array<PieceKind, kPiecesPerSide> kKinds{
    Master, Master, Master, Officer, Officer, Officer, Officer, Pawn, Pawn, Pawn, Pawn, Pawn, Pawn};

// Messages and saved games name pieces by their index, so this order is fixed.
constexpr std::array<Square, kPieces> kImperialLayout{{
    {4, 8}, {5, 8}, {6, 8},                         // Blue Masters
    {4, 7}, {5, 7}, {6, 7}, {5, 6},                 // Blue Officers
    {3, 6}, {4, 6}, {6, 6}, {7, 6}, {4, 5}, {6, 5}, // Blue Pawns
    {3, 1}, {4, 1}, {5, 1},                         // Red Masters
    {3, 2}, {4, 2}, {5, 2}, {4, 3},                 // Red Officers
    {2, 3}, {3, 3}, {5, 3}, {6, 3}, {3, 4}, {5, 4}, // Red Pawns
}};

constexpr std::array<Square, kPieces> kDraumeCrownLayout{{
    {3, 8}, {5, 8}, {7, 8},                         // Blue Masters
    {4, 8}, {6, 8}, {5, 7}, {5, 6},                 // Blue Officers
    {3, 7}, {4, 7}, {6, 7}, {7, 7}, {2, 6}, {8, 6}, // Blue Pawns
    {2, 1}, {4, 1}, {6, 1},                         // Red Masters
    {3, 1}, {5, 1}, {4, 2}, {4, 3},                 // Red Officers
    {2, 2}, {3, 2}, {5, 2}, {6, 2}, {1, 3}, {7, 3}, // Red Pawns
}};

// Clockwise from the direction towards row 1. A Master skips the squares orthogonally next to it.
constexpr DirectionTableType kDirections{{
    {},
    {{{}, {0, 0, -2}, {0, 1, -1}, {0, 2, 0}, {0, 1, 1}, {0, 0, 2}, {0, -1, 1}, {0, -2, 0}, {0, -1, -1}}},
    {{{}, {0, 0, -1}, {0, 1, -1}, {0, 1, 0}, {0, 1, 1}, {0, 0, 1}, {0, -1, 1}, {0, -1, 0}, {0, -1, -1}}},
}};

} // namespace

void CreatePieces(Game& game) {
    game.Turn = NoSide;
    game.GameState = kReset;
    game.VictoryText.clear();
    game.ClearClick();
    game.CurPiece = 0;
    game.Return = {};
    game.JailTable.assign(1, PieceRecord{});
    game.PieceTable.assign(kPieces + 1, PieceRecord{});
    for (int i = 1; i <= kPiecesPerSide; ++i) {
        const PieceKind kind = kKinds[static_cast<std::size_t>(i - 1)];
        const KindLimits& limits = kLimits[static_cast<std::size_t>(kind)];
        SetPiece(game, i, Blue, kind, limits.maxMove, limits.maxDiag, limits.maxCtlMove, limits.maxCtlDiag);
        game.Piece(i + kPiecesPerSide) = game.Piece(i);
        game.Piece(i + kPiecesPerSide).Side = Red;
    }
    game.DirectionTable = kDirections;
}

void SetPiece(Game& game, int index, std::int16_t side, std::int16_t kind, std::int16_t maxMove,
              std::int16_t maxDiag, std::int16_t maxCtlMove, std::int16_t maxCtlDiag) {
    PieceRecord& piece = game.Piece(index);
    piece.Side = side;
    piece.Kind = kind;
    piece.MaxMove = maxMove;
    piece.MaxDiag = maxDiag;
    piece.MaxCtlMove = maxCtlMove;
    piece.MaxCtlDiag = maxCtlDiag;
}

void SetPieceSquare(Game& game, int index, Currency x, Currency y, std::int16_t prevX, std::int16_t prevY) {
    PieceRecord& piece = game.Piece(index);
    piece.X = x;
    piece.Y = y;
    piece.PrevX = prevX;
    piece.PrevY = prevY;
}

void PlacePieces(Game& game, std::int16_t boardVariant) {
    const auto& layout = boardVariant == kImperialBoard ? kImperialLayout : kDraumeCrownLayout;
    for (int i = 1; i <= kPieces; ++i) {
        const Square square = layout[static_cast<std::size_t>(i - 1)];
        game.Piece(i).X = square.column;
        game.Piece(i).Y = square.row;
    }
}

int PieceOn(const Game& game, Square square) {
    for (int i = 1; i <= game.PieceCount(); ++i)
        if (game.Piece(i).StandsOn(square))
            return i;
    return 0;
}

int CountJailed(const Game& game, std::int16_t side, PieceKind kind) {
    if (game.JailTable.empty())
        return 0;
    return static_cast<int>(
        std::count_if(game.JailTable.begin() + 1, game.JailTable.end(), [&](const PieceRecord& piece) {
            const bool sameKind = kind == Pawn ? piece.Kind >= Pawn : piece.Kind == kind;
            return sameKind && piece.Side == side;
        }));
}

std::string_view SideName(std::int16_t side) {
    return side == Blue ? "Blue" : "Red";
}

std::string_view KindName(std::int16_t kind) {
    switch (kind) {
    case Master:
        return "Master";
    case Officer:
        return "Officer";
    default:
        return "Pawn";
    }
}

} // namespace tarveth
