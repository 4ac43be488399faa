#include "server/Directory.h"

#include "net/wire/nickname.h"
#include "server/AddressRange.h"
#include "text/foldcase.h"
#include "text/trim.h"

#include <utility>

namespace tarveth {

namespace {

// When this many variants of a nickname are taken, the next numbers tried are ones that no newcomer had
// before, so that a thousand users who ask for one nickname do not cost a million look-ups.
constexpr int kVariantsInARow = 8;

} // namespace

Session* Directory::Find(std::string_view nick) const {
    const auto found = usersBySkeleton_.find(NicknameSkeleton(nick));
    if (found == usersBySkeleton_.end() || FoldCase(found->second->nick) != FoldCase(TrimBlanks(nick)))
        return nullptr;
    return found->second;
}

bool Directory::IsNickname(std::string_view text) const {
    return usersBySkeleton_.contains(NicknameSkeleton(text)) || reserved_.Holds(text);
}

// A nickname that reads as an address could make the operator act against whoever comes from there.
Directory::Offer Directory::NicknameFor(const Session& session, std::string_view wanted, Time now) {
    std::string clean = LobbyNickname(wanted);
    if (reserved_.Forbids(clean) || ParseRange(clean))
        clean = CleanNickname("");
    std::string nick = FreeNickname(session, clean, now);
    return {std::move(clean), std::move(nick)};
}

std::string Directory::FreeNickname(const Session& session, const std::string& nick, Time now) {
    if (IsFree(session, nick, now))
        return nick;
    for (int number = 2;; ++number) {
        if (number == kVariantsInARow)
            number += static_cast<int>(++crowdedNames_ % 1'000'000);
        std::string variant = NicknameVariant(nick, number);
        if (IsFree(session, variant, now))
            return variant;
    }
}

bool Directory::IsFree(const Session& session, std::string_view nick, Time now) const {
    const std::string skeleton = NicknameSkeleton(nick);
    const auto found = usersBySkeleton_.find(skeleton);
    if (found != usersBySkeleton_.end())
        return found->second == &session;
    return !absences_.IsKept(skeleton, session.address, now);
}

void Directory::Add(Session& user) {
    usersBySkeleton_.emplace(NicknameSkeleton(user.nick), &user);
    user.place = static_cast<std::uint32_t>(users_.size());
    users_.push_back(&user);
}

void Directory::Rename(Session& user, const std::string& nick) {
    usersBySkeleton_.erase(NicknameSkeleton(user.nick));
    user.nick = nick;
    usersBySkeleton_.emplace(NicknameSkeleton(nick), &user);
}

void Directory::Remove(Session& user) {
    usersBySkeleton_.erase(NicknameSkeleton(user.nick));
    users_.back()->place = user.place;
    std::swap(users_[user.place], users_.back());
    users_.pop_back();
}

} // namespace tarveth
