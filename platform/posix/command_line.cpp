#include "platform/command_line.h"

namespace tarveth::platform {

std::vector<std::string> CommandLine(int argc, char** argv) {
    return {argv, argv + argc};
}

// Nothing to do: a program inherits its parent's terminal.
void WriteToConsole() {}

} // namespace tarveth::platform
