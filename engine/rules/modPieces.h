// The pieces, the board they stand on, the jail, the direction tables and the two starting layouts.
// Tables are indexed from 1, as messages, saved games and the notation number them.
#pragma once

#include "engine/rules/Currency.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tarveth {

struct Game;

// The owner of a piece. Code that reads a side treats any value but Blue as Red. NoSide occurs only in Turn,
// before the first turn.
enum Side : std::int16_t { NoSide = 0, Blue = 1, Red = 2 };

// The kind of a piece. Code that reads a kind treats any value but Master and Officer as Pawn.
enum PieceKind : std::int16_t { Master = 1, Officer = 2, Pawn = 3 };

inline constexpr int kBoardSize = 8;      // squares along an edge
inline constexpr int kPiecesPerSide = 13; // piece 13 + i is Red's counterpart of Blue's piece i
inline constexpr int kPieces = 2 * kPiecesPerSide;

// How many pieces of each kind a side begins with.
inline constexpr int kMastersPerSide = 3;
inline constexpr int kOfficersPerSide = 4;
inline constexpr int kPawnsPerSide = 6;

inline constexpr std::int16_t kImperialBoard = 1;
inline constexpr std::int16_t kDraumeCrownBoard = 2;

// A place on the board: column and row 1 to 8. (0, 0) is no square.
struct Square {
    int column = 0;
    int row = 0;
    friend constexpr bool operator==(Square, Square) = default;
    constexpr bool OnBoard() const {
        return column >= 1 && column <= kBoardSize && row >= 1 && row <= kBoardSize;
    }
};

// One piece. While it is in the jail, X and Y are the negatives of the square where it was captured.
struct PieceRecord {
    std::int16_t Kind = 0;                 // PieceKind
    std::int16_t Side = 0;                 // owner
    Currency X, Y;                         // column and row; fractions only while the piece is being animated
    std::int16_t PrevX = 0, PrevY = 0;     // the square before its last move
    std::int16_t TargetX = 0, TargetY = 0; // animation: where it is going
    Currency StepX, StepY;                 // animation: columns and rows per tick
    std::int16_t MaxMove = 0;              // most squares in a straight line when its owner moves it
    std::int16_t MaxDiag = 0;              // diagonals when its owner moves it: 0 for none
    std::int16_t MaxCtlMove = 0;           // as MaxMove, moved by the opponent under control
    std::int16_t MaxCtlDiag = 0;           // as MaxDiag, moved by the opponent under control

    friend bool operator==(const PieceRecord&, const PieceRecord&) = default;

    bool StandsOn(Square square) const { return X == square.column && Y == square.row; }
    bool InJail() const { return X < 0; }
};

// (set, direction, component), each counted from 1: set 1 is the Master's pattern, set 2 the Officer's;
// component 1 is dX, 2 is dY.
using DirectionTableType = std::array<std::array<std::array<std::int16_t, 3>, 9>, 3>;

// Empties the game for a new start: Turn and GameState 0, nothing pending, the jail empty, the 26 pieces with
// their kinds and limits (but no squares yet), the direction table.
void CreatePieces(Game& game);

// Writes the kind, owner and limits of piece `index` (1 to 26).
void SetPiece(Game& game, int index, std::int16_t side, std::int16_t kind, std::int16_t maxMove,
              std::int16_t maxDiag, std::int16_t maxCtlMove, std::int16_t maxCtlDiag);

// Writes the square and the previous square of piece `index` (1 to 26).
void SetPieceSquare(Game& game, int index, Currency x, Currency y, std::int16_t prevX, std::int16_t prevY);

// Puts pieces 1 to 26 on their starting squares: 1 is the Imperial Board, any other variant the Draume Crown.
void PlacePieces(Game& game, std::int16_t boardVariant);

// Gives the piece on the square, 0 when it is free; of several, the one with the lowest index.
int PieceOn(const Game& game, Square square);

// Counts the pieces of a side and kind in the jail.
int CountJailed(const Game& game, std::int16_t side, PieceKind kind);

// Gives "Blue" for Blue and "Red" for any other value.
std::string_view SideName(std::int16_t side);

// Gives "Master", "Officer", and "Pawn" for any other value.
std::string_view KindName(std::int16_t kind);

// Gives the other side.
constexpr Side Opponent(std::int16_t side) {
    return side == Blue ? Red : Blue;
}

} // namespace tarveth
