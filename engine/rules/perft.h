// How many complete turns there are, so many turns deep: the number that tells whether two readings of the
// rules agree.
#pragma once

#include <cstdint>

namespace tarveth {

struct Game;

// Complete turns at one depth, and how many of them are of each sort.
struct TurnCounts {
    std::uint64_t turns = 0;
    std::uint64_t own = 0;         // of pieces of the side to move
    std::uint64_t controlled = 0;  // of opposing pieces
    std::uint64_t captures = 0;    // of a piece of either side
    std::uint64_t ownCaptures = 0; // a Master takes a piece of its own side
    std::uint64_t returns = 0;     // a piece comes back; each kind on each square counts
    std::uint64_t wins = 0;        // the game ends

    friend bool operator==(const TurnCounts&, const TurnCounts&) = default;
    TurnCounts& operator+=(const TurnCounts& other);
};

// The turns of the last of `depth` (1 or more) turns, over all ways of playing those before it. Throws
// std::invalid_argument when CheckGame finds fault with the game.
TurnCounts CountTurns(const Game& game, int depth);

} // namespace tarveth
