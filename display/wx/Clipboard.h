// The system's clipboard, as texts.
#pragma once

#include <string>

namespace tarveth {

// Puts a text there, where it stays when the program ends. False when the clipboard cannot be had.
bool CopyText(const std::string& text);

// Gives the text that is there; empty when there is none, or the clipboard cannot be had.
std::string PastedText();

} // namespace tarveth
