// What the evaluation thinks things are worth. The unit is small: 250 of it are three games won of four. The
// worth of pieces was fitted to games of the search against itself; docs/computer.md has the record.
#pragma once

#include "engine/rules/SquareSet.h"
#include "engine/rules/modPieces.h"

#include <algorithm>
#include <array>

namespace tarveth::computer {

// What a side has lost when so many of its pieces of a kind are in the jail. The last Master is the game.
inline constexpr std::array<std::array<int, 7>, 3> kJailed{{
    {0, 340, 685, 3000, 3000, 3000, 3000},
    {0, 125, 225, 345, 610, 610, 610},
    {0, 15, 45, 105, 160, 250, 610},
}};

// The value of a square for a kind, by the square's distance from the edge of the board (0 to 3) along one
// axis and the other, the smaller first. The rules know no forward: all eight symmetries hold. Pieces that do
// not care for the middle never meet, and games between equals end in shuffling.
inline constexpr std::array<std::array<int, 10>, 3> kSquareWorth{{
    // 00  01  02  03  11  12  13  22  23  33
    {0, 2, 3, 3, 5, 7, 8, 9, 10, 11},
    {0, 4, 6, 6, 10, 14, 16, 18, 20, 22},
    {0, 4, 6, 6, 10, 14, 16, 18, 20, 22},
}};

constexpr std::size_t RingOf(int square) {
    const Square at = NumberedSquare(square);
    const int column = std::min(at.column - 1, kBoardSize - at.column);
    const int row = std::min(at.row - 1, kBoardSize - at.row);
    const int low = std::min(column, row);
    const int high = std::max(column, row);
    constexpr std::array<int, 4> start{0, 4, 7, 9};
    return static_cast<std::size_t>(start[static_cast<std::size_t>(low)] + high - low);
}

constexpr std::array<std::array<int, kSquares>, 3> SpreadOverSquares() {
    std::array<std::array<int, kSquares>, 3> worth{};
    for (std::size_t kind = 0; kind < worth.size(); ++kind)
        for (int square = 0; square < kSquares; ++square)
            worth[kind][static_cast<std::size_t>(square)] = kSquareWorth[kind][RingOf(square)];
    return worth;
}

inline constexpr auto kSquareValues = SpreadOverSquares();

constexpr int SquareValue(PieceKind kind, int square) {
    return kSquareValues[static_cast<std::size_t>(kind - Master)][static_cast<std::size_t>(square)];
}

constexpr int JailedValue(PieceKind kind, int jailed) {
    return kJailed[static_cast<std::size_t>(kind - Master)][static_cast<std::size_t>(std::min(jailed, 6))];
}

} // namespace tarveth::computer
