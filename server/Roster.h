// The answer to sendnicks(): one addnick message a user. It is written once for all who ask until a user goes
// or changes; an arrival is only added to its end.
#pragma once

#include "server/Outgoing.h"
#include "server/Session.h"

namespace tarveth {

class Roster {
public:
    void Add(const Session& user);
    void UserChanged() { stale_ = true; }

    // What a new listener is sent.
    const std::vector<Stretch>& Text(const std::vector<Session*>& users);

private:
    BlockWriter writer_;
    std::vector<Stretch> text_;
    bool stale_ = false;
};

// The status sign of a user: 1 while he is in a game.
std::string_view StatusText(const Session& user);

} // namespace tarveth
