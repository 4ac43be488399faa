// Sets of squares held in one 64-bit number, and what can be seen from each square. Squares are numbered row
// by row: (1, 1) is 0, (8, 1) is 7, (8, 8) is 63.
#pragma once

#include "engine/rules/modPieces.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace tarveth {

using SquareSet = std::uint64_t; // bit n stands for square number n

inline constexpr int kSquares = kBoardSize * kBoardSize;
inline constexpr int kNoSquare = kSquares;
inline constexpr int kLongestMove = kBoardSize - 1; // squares, from edge to edge

constexpr int SquareNumber(Square square) {
    return (square.row - 1) * kBoardSize + square.column - 1;
}

constexpr Square NumberedSquare(int number) {
    return {number % kBoardSize + 1, number / kBoardSize + 1};
}

// The set of one square; empty for kNoSquare.
constexpr SquareSet SetOf(int number) {
    return number == kNoSquare ? 0 : SquareSet{1} << number;
}

constexpr SquareSet SetOf(Square square) {
    return square.OnBoard() ? SetOf(SquareNumber(square)) : 0;
}

// By arithmetic: without the processor's own instruction, which older ones do not have, std::popcount is a
// call into a library.
constexpr int CountOf(SquareSet set) {
    set -= (set >> 1) & 0x5555555555555555;
    set = (set & 0x3333333333333333) + ((set >> 2) & 0x3333333333333333);
    set = (set + (set >> 4)) & 0x0f0f0f0f0f0f0f0f;
    return static_cast<int>((set * 0x0101010101010101) >> 56);
}

// Takes the square of the lowest number out of a set that is not empty.
constexpr int TakeFirst(SquareSet& set) {
    const int number = std::countr_zero(set);
    set &= set - 1;
    return number;
}

// Straight directions first. South is towards row 8.
enum Direction { East, South, West, North, SouthEast, SouthWest, NorthWest, NorthEast };

inline constexpr std::array<Square, 8> kSteps{
    {{1, 0}, {0, 1}, {-1, 0}, {0, -1}, {1, 1}, {-1, 1}, {-1, -1}, {1, -1}}};

using SquareTable = std::array<SquareSet, kSquares>; // by the number of the square looked from

// One table a direction: every square on the way to the edge.
constexpr std::array<SquareTable, kSteps.size()> MakeRays() {
    std::array<SquareTable, kSteps.size()> rays{};
    for (std::size_t d = 0; d < kSteps.size(); ++d)
        for (int from = 0; from < kSquares; ++from) {
            Square square = NumberedSquare(from);
            for (int k = 1; k <= kLongestMove; ++k) {
                square = {square.column + kSteps[d].column, square.row + kSteps[d].row};
                rays[d][static_cast<std::size_t>(from)] |= SetOf(square);
            }
        }
    return rays;
}

// One table a number of steps, 0 to 7: every square that many king's steps away, or fewer.
constexpr std::array<SquareTable, kLongestMove + 1> MakeNeighbourhoods() {
    std::array<SquareTable, kLongestMove + 1> within{};
    for (int steps = 0; steps <= kLongestMove; ++steps)
        for (int from = 0; from < kSquares; ++from)
            for (int dX = -steps; dX <= steps; ++dX)
                for (int dY = -steps; dY <= steps; ++dY) {
                    const Square centre = NumberedSquare(from);
                    within[static_cast<std::size_t>(steps)][static_cast<std::size_t>(from)] |=
                        SetOf(Square{centre.column + dX, centre.row + dY});
                }
    return within;
}

// The squares beside one in the four straight directions.
constexpr SquareTable MakeStraightNeighbours() {
    SquareTable neighbours{};
    for (int from = 0; from < kSquares; ++from)
        for (const Direction direction : {East, South, West, North}) {
            const Square centre = NumberedSquare(from);
            const Square step = kSteps[direction];
            neighbours[static_cast<std::size_t>(from)] |=
                SetOf(Square{centre.column + step.column, centre.row + step.row});
        }
    return neighbours;
}

inline constexpr auto kRays = MakeRays();
inline constexpr auto kWithin = MakeNeighbourhoods();
inline constexpr auto kStraightNeighbours = MakeStraightNeighbours();

// The free squares seen in one direction, and the first occupied one.
template <Direction direction>
constexpr SquareSet Slide(int from, SquareSet occupied) {
    constexpr const SquareTable& rays = kRays[direction];
    constexpr bool ascending = kSteps[direction].row * kBoardSize + kSteps[direction].column > 0;
    const SquareSet ray = rays[static_cast<std::size_t>(from)];
    // The corner at the end of the numbers has an empty ray: it stands for "nothing met".
    const int met = ascending ? std::countr_zero((ray & occupied) | SetOf(kSquares - 1))
                              : kSquares - 1 - std::countl_zero((ray & occupied) | SetOf(0));
    return ray ^ rays[static_cast<std::size_t>(met)];
}

constexpr SquareSet SlideStraight(int from, SquareSet occupied) {
    return Slide<East>(from, occupied) | Slide<South>(from, occupied) | Slide<West>(from, occupied) |
           Slide<North>(from, occupied);
}

constexpr SquareSet SlideDiagonally(int from, SquareSet occupied) {
    return Slide<SouthEast>(from, occupied) | Slide<SouthWest>(from, occupied) |
           Slide<NorthWest>(from, occupied) | Slide<NorthEast>(from, occupied);
}

} // namespace tarveth
