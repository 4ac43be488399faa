// The command line of tarveth-lobby.
#pragma once

#include "server/Limits.h"
#include "server/Transport.h"

#include <optional>
#include <string>

namespace tarveth {

struct LobbyOptions {
    ListenOptions listen;
    Limits limits;
    std::string messageOfTheDay;
    std::string logLevel = "info";
};

// Gives nothing when the program should end at once with exitCode: help, the version or a fault of the
// command line has been printed.
std::optional<LobbyOptions> ReadCommandLine(int count, char** arguments, int& exitCode);

} // namespace tarveth
