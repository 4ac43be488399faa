// The command line that the program was started with.
#pragma once

#include <string>
#include <vector>

namespace tarveth::platform {

// Gives the program's name and its arguments; on Windows they are UTF-8. Takes the parameters of main().
std::vector<std::string> CommandLine(int argc, char** argv);

// Connects standard output and standard error to the console that the program was started from, if there is
// one. To be called before the first text is written to them.
void WriteToConsole();

} // namespace tarveth::platform
