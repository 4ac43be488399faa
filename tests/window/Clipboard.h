// The text that a program has put on the desktop's clipboard.
#pragma once

#include "tests/window/Screen.h"

#include <string>

namespace tarveth::harness {

// Asks the program that owns the clipboard for its text; empty when there is none, or no answer.
std::string ClipboardText(const Screen& screen);

} // namespace tarveth::harness
