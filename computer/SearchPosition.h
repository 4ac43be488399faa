// A position as the search walks through it: the rules' compact position, with a key for the transposition
// table and a score, both kept up to date turn by turn.
#pragma once

#include "computer/SearchTurn.h"

#include <cstdint>

namespace tarveth::computer {

class SearchPosition {
public:
    explicit SearchPosition(const CompactGame& rules);

    const CompactGame& Rules() const { return rules_; }
    Side Turn() const { return rules_.Turn(); }

    // Plays a legal turn.
    void Play(SearchTurn turn);
    void Pass();

    // Two positions with the same key allow the same turns, now and later. The square that a piece is barred
    // from is part of it only where the side to move could go there.
    std::uint64_t Key() const { return key_ ^ barredKey_; }
    // Of the pieces and their squares, seen from the side to move.
    int Score() const { return Turn() == Blue ? score_ : -score_; }

    // The parts as a fresh look at the whole board gives them. Asserted after every turn.
    std::uint64_t FreshKey() const;
    int FreshScore() const;

private:
    void Move(Side side, PieceKind kind, int from, int to);
    void Take(int square);
    void PutBack(PieceKind kind, int square);
    void CountJail(Side side, PieceKind kind, int before, int after);
    std::uint64_t BarredKey() const;

    CompactGame rules_;
    std::uint64_t key_ = 0;       // of all but the barred square
    std::uint64_t barredKey_ = 0; // of the barred square
    int score_ = 0;               // from Blue's side
};

} // namespace tarveth::computer
