// Who does not want to read whom. The lists are by nickname and follow renames.
#pragma once

#include "server/Session.h"

#include <string_view>
#include <vector>

namespace tarveth {

class IgnoreLists {
public:
    static bool Ignores(const Session& user, const Session& other);
    // folded: the nickname in small letters.
    void Add(Session& user, std::string_view folded);
    void Remove(Session& user, std::string_view folded);
    // Clears the list of a user who leaves.
    void Clear(Session& user);
    // Lets the lists that hold the user's nickname hold the new one.
    void Rename(const Session& user, std::string_view nick);
    // Gives the users who receive announcements, but not this speaker's.
    std::vector<Session*> DeafTo(const Session& speaker) const;

private:
    std::vector<Session*> ignorers_; // the users who ignore somebody
};

} // namespace tarveth
