// What one client may do in the lobby. Each limit is an option of the program; a rate of 0 means no limit.
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
    std::size_t longestMessage = kLongestMessage;
    Rate chatLines{0.5, 8};
    Rate chatCharacters{150, 1500};
    Rate messages{3, 30};
    Rate moves{200, 400};
    std::chrono::milliseconds handshake{15000};
    std::size_t unsentBytes = std::size_t{2} << 20;
    int oldestClient = 20000; // major * 10,000 + minor * 1,000 + revision
};

} // namespace tarveth
