// What the lobby has counted since its start, for the operator.
#pragma once

#include <cstdint>

namespace tarveth {

struct Figures {
    std::uint64_t arrivals = 0;        // connections that were let in
    std::uint64_t refusedArrivals = 0; // and those that were not: too many, of one address or in all
    std::uint64_t messages = 0;        // marked ones received
    std::uint64_t moves = 0;           // play messages passed on
    std::uint64_t chatLines = 0;       // passed on
    std::uint64_t dropped = 0;         // messages and lines over a limit, or that nobody may send
    std::uint64_t pauses = 0;          // readings put off because of too many moves
    std::uint64_t silent = 0;          // clients that did not complete the handshake in time
    std::uint64_t slowReaders = 0;     // clients dropped for not reading
    std::uint64_t games = 0;           // being played now
};

} // namespace tarveth
