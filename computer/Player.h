// A player that thinks: positions in, a turn out. Make as many as you like; each has a memory of its own.
#pragma once

#include "computer/search.h"

#include <memory>

namespace tarveth::computer {

inline constexpr int kWeakestLevel = 1;
inline constexpr int kDefaultLevel = 2;
inline constexpr int kStrongestLevel = 7;

// What a player may use for one turn.
struct Allowance {
    std::optional<std::chrono::milliseconds> time;
    std::uint64_t nodes = 0; // instead of time; 0 for no limit
};

class Player {
public:
    explicit Player(int level = kDefaultLevel, std::uint64_t seed = 0);

    void SetLevel(int level) { level_ = level; }
    int Level() const { return level_; }
    // Another game: forgets the last one. The same seed and node counts give the same turns on every system.
    void BeginGame(std::uint64_t seed);

    // The turn to play in a game that is not over; none where the side to move has none. `earlier` are the
    // keys of the positions since the last capture, oldest first, without the present one. Blocks until it
    // has decided; ends within milliseconds of a stop request.
    SearchResult Choose(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
                        const Allowance& allowance, const std::stop_token& stop = {},
                        const std::function<void(const SearchResult&)>& tell = {});

private:
    int level_;
    std::uint64_t seed_;
    TranspositionTable table_;
    Searcher searcher_;
};

} // namespace tarveth::computer
