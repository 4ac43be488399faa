// Users whose connection has ended a moment ago. Whoever comes back from the same address gets the nickname
// again, and the partner in the game that was interrupted is told.
#pragma once

#include "server/ClientAddress.h"
#include "server/Limits.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarveth {

struct Session;

class Absences {
public:
    // Keeps the nickname of a user who has left for the user's address. partner: in the game that has ended
    // by it; may be null.
    void Keep(const Session& user, Session* partner, Time until, Time now);
    // Whether the nickname of that skeleton is kept for another address.
    bool IsKept(const std::string& skeleton, const ClientAddress& address, Time now) const;
    // Ends the absence of the user of that nickname, who is back; gives the partner, if there is one.
    Session* End(const Session& user, Time now);

    // A newcomer has asked for a nickname that another connection of the same address still has, which may be
    // the newcomer's own one, broken.
    void Await(Session& newcomer, const std::string& nick, Time until);
    // Takes the newcomer who waits for the nickname that this user has had; null if there is none.
    Session* TakeWaiting(const Session& user, Time now);

    // Forgets a session that is closed or has got another nickname.
    void ForgetWaiting(const Session& session);
    void ForgetPartner(Session& session);

private:
    struct Absence {
        ClientAddress prefix;
        Session* partner;
        Time until;
    };
    struct Waiting {
        Session* newcomer;
        std::string skeleton;
        Time until;
    };

    std::unordered_map<std::string, Absence> absences_; // by the skeleton of the nickname
    std::vector<Waiting> waiting_;
    std::size_t sweepSize_ = 256; // how many absences there are before those that are over are looked for
};

} // namespace tarveth
