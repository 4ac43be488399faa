// The system's viewer of help files.
#pragma once

#include <cstdint>
#include <string>

namespace tarveth::platform {

inline constexpr unsigned kHelpContents = 3; // the command that opens the contents

// Opens a help file at the place that command and data name; the viewer goes on by itself. `window` is the
// native handle of the window that asks. False when there is no viewer or it cannot open the file.
bool WinHelpA(void* window, const std::string& path, unsigned command, std::uintptr_t data);

} // namespace tarveth::platform
