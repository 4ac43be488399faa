// Drops a file on a window, as a file manager does, by the X drag-and-drop protocol.
#pragma once

#include "tests/window/Window.h"

#include <string>

namespace tarveth::harness {

// Drags the file to the point of the screen, which lies in the window, and drops it there. True when the
// window has taken it.
bool DropFile(const Screen& screen, const Window& window, Point at, const std::string& path);

} // namespace tarveth::harness
