// What an INI file holds. Some systems drop the blanks in front of a value when they write it, which reads
// the same.
#pragma once

#include <string>

namespace tarveth {

// For comparing two such files.
inline std::string WithoutBlanksBeforeValues(std::string bytes) {
    for (auto at = bytes.find("= "); at != std::string::npos; at = bytes.find("= ", at))
        bytes.erase(at + 1, 1);
    return bytes;
}

} // namespace tarveth
