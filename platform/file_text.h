// Converts text between the program, where it is UTF-8, and its files: settings, games, logs, picture schemes
// and the list of servers. On Windows the files are in the system's code page, since earlier releases share
// them; on other systems the bytes stay as they are.
#pragma once

#include <string>
#include <string_view>

namespace tarveth::platform {

// Converts bytes from a file to text. On Windows the result is valid UTF-8, whatever the bytes are.
std::string TextFromFile(std::string bytes);

// Converts text to bytes for a file. A text with letters that the code page lacks stays UTF-8, with a byte
// order mark in front, by which TextFromFile recognises it.
std::string TextForFile(std::string_view text);

} // namespace tarveth::platform
