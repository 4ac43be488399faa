// Opens help files in the system's viewer.
#pragma once

#include <cstdint>
#include <string>

namespace tarveth::platform {

inline constexpr unsigned kHelpContents = 3; // the command that opens the contents

// Opens a help file at the place that command and data name and returns at once. `window` is the native
// handle of the calling window. False when the system has no viewer or the viewer cannot open the file.
bool WinHelpA(void* window, const std::string& path, unsigned command, std::uintptr_t data);

} // namespace tarveth::platform
