// What the operator has decided about people: who is banned and who is muted, by nickname or address, and for
// how long.
#pragma once

#include "server/AddressRange.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

// The time of the calendar, since sanctions outlast the program.
using WallTime = std::chrono::sys_seconds;
WallTime WallNow();

// Whom a sanction, or another act of the operator, is meant for: whoever has the nickname, or comes from the
// range. One of the two may be missing.
struct Target {
    std::string nick; // in the wire's code page
    std::optional<AddressRange> range;

    bool operator==(const Target&) const = default;

    bool Holds(const ClientAddress& address) const { return range && range->Holds(address); }
    // Whether the nickname, or one that looks like it, is meant.
    bool HoldsNick(std::string_view nickname) const;
};

struct Sanction {
    enum class Kind : std::uint8_t { Ban, Mute };

    Kind kind = Kind::Ban;
    Target target;
    std::optional<WallTime> until; // nothing: until it is lifted
    std::string reason;            // in the wire's code page; may be empty

    bool operator==(const Sanction&) const = default;
};

class Sanctions {
public:
    using Kind = Sanction::Kind;

    // Finds the sanction of that kind that now holds for the address or for the nickname, which may be empty;
    // null if there is none.
    const Sanction* Find(Kind kind, const ClientAddress& address, std::string_view nick, WallTime now) const;
    const std::vector<Sanction>& All() const { return list_; }

    void Set(std::vector<Sanction> list) { list_ = std::move(list); }
    // Adds a sanction in place of one of the same kind for the same target.
    void Add(const Sanction& sanction);
    // Removes the sanctions of that kind that name this nickname or this range; gives how many there were.
    std::size_t Remove(Kind kind, const Target& target);
    void RemoveExpired(WallTime now);

private:
    std::vector<Sanction> list_;
};

// "until 2026-11-22 10:00 UTC", or "until it is lifted".
std::string UntilText(const Sanction& sanction);

// Tells a client who is banned why, and for how long.
std::string BanSentence(const Sanction& ban);

} // namespace tarveth
