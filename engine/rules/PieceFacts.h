// What a game fixes for each piece and no turn changes: how far it may go. Positions share it, so that
// copying one for a turn copies only what the turn may change.
#pragma once

#include "engine/rules/SquareSet.h"

#include <array>
#include <cstdint>

namespace tarveth {

struct Game;
struct PieceRecord;

// How far a piece may go in a straight line and diagonally; each 0 to 7.
struct Reach {
    std::uint8_t straight, diagonal;
};

// Diagonals of five and seven steps count one more than they are (see DiagonalDistance), so that a piece on
// the destination itself is in the way.
inline SquareSet OvercountedDiagonals(int from) {
    const auto square = static_cast<std::size_t>(from);
    return (kWithin[5][square] ^ kWithin[4][square]) | (kWithin[7][square] ^ kWithin[6][square]);
}

// The squares that a piece with this reach can go to, those of the pieces it meets included.
inline SquareSet SquaresInReach(int from, Reach reach, SquareSet occupied) {
    const auto square = static_cast<std::size_t>(from);
    // Nothing can be in the way of a single step, the only move of an uncontrolled Pawn.
    if (reach.straight == 1)
        return reach.diagonal == 0 ? kStraightNeighbours[square] : kWithin[1][square] ^ SetOf(from);
    SquareSet squares = SlideStraight(from, occupied) & kWithin[reach.straight][square];
    if (reach.diagonal > 0)
        squares |= SlideDiagonally(from, occupied) & kWithin[reach.diagonal][square] &
                   ~(OvercountedDiagonals(from) & occupied);
    return squares;
}

class PieceFacts {
public:
    // Throws std::invalid_argument when CheckGame finds fault with the game.
    explicit PieceFacts(const Game& game);

    Reach ReachOf(int piece, bool own) const { return reach_[own ? 1 : 0][static_cast<std::size_t>(piece)]; }
    // Where the Rule of Reflection bars the piece from before the first turn that is played; kNoSquare for
    // none. Afterwards only the piece moved last is barred.
    int BarredAtFirst(int piece) const { return barredAtFirst_[static_cast<std::size_t>(piece)]; }

private:
    void AddPiece(int index, const PieceRecord& piece);

    std::array<std::array<Reach, kPieces + 1>, 2> reach_{}; // by piece: controlled, own
    std::array<std::int8_t, kPieces + 1> barredAtFirst_{};
};

} // namespace tarveth
