#include "storage/gamebar.h"

#include "engine/rules/modPieces.h"
#include "platform/local_time.h"

#include <array>
#include <cstdio>
#include <utility>

namespace tarveth {

namespace {

std::string DayText(const platform::LocalTime& time) {
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", time.year, time.month, time.day);
    return text.data();
}

std::string ClockText(const platform::LocalTime& time, char separator) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%02d%c%02d", time.hour, separator, time.minute);
    return text.data();
}

// "21:14", with the day before it where that is not today. A clock that was wrong may have given no day at
// all.
std::string MomentText(std::int64_t moment, std::int64_t now) {
    const platform::LocalTime then = platform::ToLocalTime(moment);
    if (then.year == 0)
        return "an unknown time";
    const std::string day = DayText(then);
    return (day == DayText(platform::ToLocalTime(now)) ? "" : day + ' ') + ClockText(then, ':');
}

bool IsNetworkGame(const KeptGame& kept) {
    return !kept.opponent.empty();
}

std::string SideText(const KeptGame& kept) {
    return IsNetworkGame(kept) ? " You played " + std::string(SideName(kept.side)) + '.' : "";
}

} // namespace

std::string_view CaptionOf(BarChoice choice) {
    switch (choice) {
    case BarChoice::GoOn:
        return "Go on";
    case BarChoice::SaveAs:
        return "Save as…";
    case BarChoice::Discard:
        return "Discard";
    case BarChoice::BringBack:
        return "Bring it back";
    default:
        return "Close";
    }
}

BarLine OfferLine(const KeptGame& kept, std::int64_t now) {
    return {"Go on with the game of " + MomentText(kept.moment, now) +
                (IsNetworkGame(kept) ? " against " + kept.opponent : "") + '?' + SideText(kept),
            {BarChoice::GoOn, BarChoice::SaveAs, BarChoice::Discard}};
}

BarLine ReplacedLine(const KeptGame& kept) {
    return {"The game before" + (IsNetworkGame(kept) ? ", against " + kept.opponent + ',' : "") +
                " is kept." + SideText(kept),
            {BarChoice::BringBack}};
}

BarLine ProblemLine(std::string problem) {
    return {std::move(problem), {BarChoice::Close}};
}

std::string ProposedName(const KeptGame& kept) {
    const platform::LocalTime then = platform::ToLocalTime(kept.moment);
    return "Game " + (IsNetworkGame(kept) ? "vs " + kept.opponent + ' ' : "") + DayText(then) + ' ' +
           ClockText(then, '-') + ".tsg";
}

} // namespace tarveth
