// The two nicknames of a visit to a lobby. Text is bytes in the wire's code page.
#pragma once

#include <string>

namespace tarveth {

struct Nicknames {
    std::string mine;
    std::string opponent; // empty while there is no opponent

    // The caption of the client window.
    std::string Caption() const {
        return "Internet Tarveth (" + mine + " vs. " + (opponent.empty() ? "<nobody>" : opponent) + ")";
    }
};

} // namespace tarveth
