#include "server/Sanctions.h"

#include "server/calendar.h"
#include "server/names.h"

#include <algorithm>

namespace tarveth {

namespace {

bool Names(const Target& target, const Target& wanted) {
    return (!wanted.nick.empty() && target.HoldsNick(wanted.nick)) ||
           (wanted.range && target.range == wanted.range);
}

bool HasExpired(const Sanction& sanction, WallTime now) {
    return sanction.until && *sanction.until <= now;
}

} // namespace

WallTime WallNow() {
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

bool Target::HoldsNick(std::string_view nickname) const {
    return !nick.empty() && !nickname.empty() && NicknameSkeleton(nick) == NicknameSkeleton(nickname);
}

const Sanction* Sanctions::Find(Kind kind, const ClientAddress& address, std::string_view nick,
                                WallTime now) const {
    const auto found = std::ranges::find_if(list_, [&](const Sanction& sanction) {
        return sanction.kind == kind && !HasExpired(sanction, now) &&
               (sanction.target.Holds(address) || sanction.target.HoldsNick(nick));
    });
    return found == list_.end() ? nullptr : &*found;
}

void Sanctions::Add(const Sanction& sanction) {
    std::erase_if(list_, [&sanction](const Sanction& old) {
        return old.kind == sanction.kind && old.target == sanction.target;
    });
    list_.push_back(sanction);
}

std::size_t Sanctions::Remove(Kind kind, const Target& target) {
    return std::erase_if(list_, [&](const Sanction& sanction) {
        return sanction.kind == kind && Names(sanction.target, target);
    });
}

void Sanctions::RemoveExpired(WallTime now) {
    std::erase_if(list_, [now](const Sanction& sanction) { return HasExpired(sanction, now); });
}

std::string UntilText(const Sanction& sanction) {
    return sanction.until ? "until " + CalendarText(*sanction.until) : "until it is lifted";
}

std::string BanSentence(const Sanction& ban) {
    std::string sentence = "You are banned from this lobby";
    if (ban.until)
        sentence += " " + UntilText(ban);
    return sentence + (ban.reason.empty() ? "." : ": " + ban.reason);
}

} // namespace tarveth
