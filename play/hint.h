// Says in one sentence what a turn is good for, from what a search has found.
#pragma once

#include "computer/search.h"

#include <string>

namespace tarveth {

// What was found about a position in which it is the player's turn.
struct HintFindings {
    computer::SearchResult best;
    // What the opponent would play if it were their turn instead. No turn where that is not known.
    computer::SearchResult threat;
};

// Gives the sentence, such as "Move your Officer 4E-4D: it takes a Pawn." There is a best turn.
std::string HintSentence(const computer::SearchPosition& position, const HintFindings& found);

} // namespace tarveth
