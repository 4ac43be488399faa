// The command line of tarveth-lobby.
#pragma once

#include "server/Limits.h"
#include "server/Server.h"

#include <optional>
#include <string>

namespace tarveth {

struct LobbyOptions {
    Reach reach;
    Limits limits;
    std::string messageOfTheDay;
    std::string logLevel = "info";
};

// Nothing when the program is to end at once, with exitCode: help or the version has been printed, or what is
// wrong with the command line has.
std::optional<LobbyOptions> ReadCommandLine(int count, char** arguments, int& exitCode);

} // namespace tarveth
