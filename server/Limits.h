// What clients may do in the lobby. Each limit is an option of the program; a rate of 0 means no limit. A
// rate counts for each client, and in the same height for all clients of one address together.
#pragma once

#include "net/wire/framing.h"

#include <chrono>
#include <cstddef>

namespace tarveth {

using Clock = std::chrono::steady_clock;
using Time = Clock::time_point;

// An average per second, and the largest amount at once.
struct Rate {
    double perSecond = 0; // 0 means no limit
    double atOnce = 0;
};

struct Limits {
    std::size_t maxClients = 20000;
    std::size_t perAddress = 8; // connections of one address at the same time
    bool exemptLoopback = false;
    Rate arrivals{10.0 / 60, 10}; // connections of one address that are accepted

    std::size_t longestMessage = kLongestMessage;
    Rate chatLines{0.5, 8};
    Rate chatCharacters{150, 1500};
    Rate messages{3, 30};
    Rate renames{0.3, 3};
    Rate invitations{5.0 / 60, 5};
    Rate moves{200, 400}; // for each client alone
    Rate uselessBytes{32768, 2097152};
    Rate offences{2, 200};

    std::size_t openInvitations = 16; // of one inviter
    std::size_t ignoredUsers = 100;   // by one user
    std::chrono::milliseconds handshake{15000};
    std::chrono::milliseconds linePause{100};
    std::chrono::milliseconds keptNames{60000}; // for which the nickname of a user who was cut off is kept
    std::size_t unsentBytes = std::size_t{2} << 20;
    std::size_t memory = std::size_t{256} << 20; // for all clients together
    int oldestClient = 20000;                    // major * 10,000 + minor * 1,000 + revision
};

} // namespace tarveth
