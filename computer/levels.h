// What makes a level weaker than another: it looks less far ahead, overlooks what a person overlooks, and
// chooses among turns that look near enough to the best.
#pragma once

#include "computer/search.h"

namespace tarveth::computer {

inline constexpr int kWeakestLevel = 1;
inline constexpr int kDefaultLevel = 2;
inline constexpr int kStrongestLevel = 7;

struct LevelTraits {
    // For levels that search as well as they can within limits.
    std::uint64_t nodes =
        0; // at most, once `leastDepth` has been searched; 0 for no limit of the level's own
    int leastDepth = 0;
    // For levels that choose as a person does: all turns are looked at by themselves, so many turns further.
    bool likeAPerson = false;
    int ahead = 0;          // turns after the one that is looked at; captures are followed further
    int missedWins = 0;     // of 100 turns that win at once, how many are not seen
    int missedFar = 0;      // of 100 captures far from the opponent's last turn
    int missedReplies = 0;  // of 100 turns, those whose consequences are not looked at
    bool seesLosses = true; // never lets the other side win at once where that can be avoided
    int tolerance = 0;      // turns worse by so many units of the evaluation are chosen half as often
};

const LevelTraits& TraitsOf(int level);

// The turn that a person with these traits might choose. The same seed gives the same turn.
SearchResult ChooseLikeAPerson(const SearchPosition& position, const LevelTraits& traits, std::uint64_t seed,
                               Searcher& searcher, const SearchLimits& limits, const std::stop_token& stop);

} // namespace tarveth::computer
