// The bytes of text in the files that are kept beside the program: settings, games, logs, picture schemes,
// the list of servers. On Windows they are in the system's own code page, as earlier releases wrote them and
// still read them; elsewhere they are the text's own bytes. In the program every text is UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace tarveth::platform {

// The text that bytes out of a file stand for; valid UTF-8 on Windows, whatever they are.
std::string TextFromFile(std::string bytes);

// The bytes for a file. A text that the code page has no letters for stays UTF-8, with the mark of a UTF-8
// file in front, by which TextFromFile knows it.
std::string TextForFile(std::string_view text);

} // namespace tarveth::platform
