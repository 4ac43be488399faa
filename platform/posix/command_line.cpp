#include "platform/command_line.h"

namespace tarveth::platform {

std::vector<std::string> CommandLine(int argc, char** argv) {
    return {argv, argv + argc};
}

// Every program has its starter's.
void WriteToConsole() {}

} // namespace tarveth::platform
