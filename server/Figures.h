// The counters of the lobby since its start, for the operator. Nothing in the lobby depends on them.
#pragma once

#include <cstdint>

namespace tarveth {

struct Figures {
    std::uint64_t arrivals = 0;        // accepted connections
    std::uint64_t refusedArrivals = 0; // connections that were refused
    std::uint64_t messages = 0;        // messages received
    std::uint64_t moves = 0;           // play messages passed on
    std::uint64_t chatLines = 0;       // chat lines passed on
    std::uint64_t dropped = 0;         // messages and chat lines over a limit, or not allowed
    std::uint64_t pauses = 0;          // how often reading from a client was paused because of too many moves
    std::uint64_t silent = 0;          // clients that did not complete the handshake in time
    std::uint64_t slowReaders = 0;     // clients dropped for not reading
    std::uint64_t memoryDrops = 0;     // clients dropped because the memory for all clients was full
    std::uint64_t flooders = 0;        // clients put out because of what they sent
    std::uint64_t ghosts = 0;          // connections closed because their client had gone unnoticed
    std::uint64_t putOut = 0;          // clients put out by the operator or a ban
    std::uint64_t games = 0;           // games being played now
};

} // namespace tarveth
