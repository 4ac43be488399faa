// A player that thinks: positions in, a turn out. Make as many as you like; each has a memory of its own.
#pragma once

#include "computer/levels.h"

#include <memory>

namespace tarveth::computer {

// What a player may use for one turn.
struct Allowance {
    std::optional<std::chrono::milliseconds> time;
    std::uint64_t nodes = 0; // instead of time; 0 for no limit
};

class Player {
public:
    explicit Player(int level = kDefaultLevel, std::uint64_t seed = 0);

    void SetLevel(int level);
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
    SearchResult SearchAlone(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
                             SearchLimits limits, const std::stop_token& stop,
                             const std::function<void(const SearchResult&)>& tell);
    SearchResult SearchTogether(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
                                const SearchLimits& limits, const std::stop_token& stop,
                                const std::function<void(const SearchResult&)>& tell);
    void MakeTable();

    int level_;
    std::uint64_t seed_;
    bool hasThought_ = false; // in this game
    std::unique_ptr<TranspositionTable> table_;
    std::unique_ptr<Searcher> searcher_;
    std::vector<std::unique_ptr<Searcher>> helpers_; // of the strongest level
};

} // namespace tarveth::computer
