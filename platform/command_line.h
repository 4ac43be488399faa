// How the program was started.
#pragma once

#include <string>
#include <vector>

namespace tarveth::platform {

// The program's name and its arguments, as UTF-8 on Windows. Takes what main() was given.
std::vector<std::string> CommandLine(int argc, char** argv);

// Lets whoever started the program from a console see what it writes from now on. To be called before the
// first text is written, where there is no window to show it.
void WriteToConsole();

} // namespace tarveth::platform
