// Which users are present, found by nickname, and which nicknames a newcomer may have.
#pragma once

#include "server/Absences.h"
#include "server/Session.h"
#include "server/names.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarveth {

class Directory {
public:
    // All users, in no particular order.
    const std::vector<Session*>& Users() const { return users_; }
    // Finds the user of that nickname, ignoring letter case; null if there is none.
    Session* Find(std::string_view nick) const;
    // Whether the text looks like the nickname of a user who is present, or like a reserved one.
    bool IsNickname(std::string_view text) const;

    // Gives what the session gets that asks for this nickname: the same made clean, or the most similar one
    // that nobody has. The text is clean where it differs from a free one by its number alone.
    struct Offer {
        std::string clean;
        std::string nick;
    };
    Offer NicknameFor(const Session& session, std::string_view wanted, Time now);

    void Add(Session& user);
    void Rename(Session& user, const std::string& nick);
    void Remove(Session& user);

    // Replaces the names that the operator has reserved.
    void Reserve(const std::vector<std::string>& names) { reserved_ = ReservedNames(names); }
    Absences& Absent() { return absences_; }

private:
    std::string FreeNickname(const Session& session, const std::string& nick, Time now);
    bool IsFree(const Session& session, std::string_view nick, Time now) const;

    ReservedNames reserved_;
    Absences absences_;
    std::vector<Session*> users_;
    std::unordered_map<std::string, Session*> usersBySkeleton_;
    unsigned crowdedNames_ = 0; // how often the first few variants of a nickname were all taken
};

} // namespace tarveth
