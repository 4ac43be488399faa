// Caches the answer to sendnicks(), which is one addnick message for each user. An arrival is appended to the
// cached text; the text is written anew only after a user has left or changed.
#pragma once

#include "server/Outgoing.h"
#include "server/Session.h"

namespace tarveth {

class Roster {
public:
    // count: where the memory of the text is counted.
    explicit Roster(const ByteCount& count) : writer_(count) {}

    void Add(const Session& user);
    void UserChanged() { stale_ = true; }

    // Gives the text of the whole list.
    const std::vector<Slice>& Text(const std::vector<Session*>& users);

private:
    BlockWriter writer_;
    std::vector<Slice> text_;
    bool stale_ = false;
};

// The status number of a user: 1 while they are in a game, else 0.
std::string_view StatusText(const Session& user);

} // namespace tarveth
