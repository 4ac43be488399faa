// The line above the board that tells of games that are kept, with its buttons: what it says, as values.
#pragma once

#include "storage/keptgame.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

enum class BarChoice { GoOn, SaveAs, Discard, BringBack, Close };

struct BarLine {
    std::string text; // empty while there is nothing to tell
    std::vector<BarChoice> choices = {};

    friend bool operator==(const BarLine&, const BarLine&) = default;
};

struct GameBarPort {
    virtual ~GameBarPort() = default;
    // Shows the line, or no bar for an empty one.
    virtual void ShowBar(const BarLine& line) = 0;
};

// The caption of a button.
std::string_view CaptionOf(BarChoice choice);

// Offers a game that an earlier program has left behind. `now` decides whether its date is said.
BarLine OfferLine(const KeptGame& kept, std::int64_t now);
// Tells of the game that another one has just replaced.
BarLine ReplacedLine(const KeptGame& kept);
// Tells what has gone wrong.
BarLine ProblemLine(std::string problem);

// Proposes a name for the file of a game that never had one.
std::string ProposedName(const KeptGame& kept);

} // namespace tarveth
