// The options of tarveth-lobby, from the command line and a configuration file.
#pragma once

#include "server/Limits.h"
#include "server/Transport.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarveth {

struct LobbyOptions {
    ListenOptions listen;
    Limits limits;
    std::string messageOfTheDay;            // in the wire's code page; lines end with "\n"
    std::vector<std::string> reservedNames; // in the wire's code page
    std::string bansFile;                   // empty for none
    std::string controlPath;                // empty for no control socket
    std::string logLevel = "info";
};

// An option that cannot be followed, with file and line if it stands in a file.
struct OptionError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Reads the words of the command line, without the program's name, and the files that they name. Options of
// the command line win over those of the configuration file. Throws OptionError.
LobbyOptions ReadOptions(const std::vector<std::string>& words);

// Gives nothing when the program should end at once with exitCode: help, the version or a fault of the
// options has been printed.
std::optional<LobbyOptions> ReadCommandLine(int count, char** arguments, int& exitCode);

} // namespace tarveth
