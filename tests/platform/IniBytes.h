// Compares INI files. Some systems drop the blanks before a value when they write it, which makes no
// difference to readers.
#pragma once

#include <string>

namespace tarveth {

// Removes the blanks before values.
inline std::string WithoutBlanksBeforeValues(std::string bytes) {
    for (auto at = bytes.find("= "); at != std::string::npos; at = bytes.find("= ", at))
        bytes.erase(at + 1, 1);
    return bytes;
}

} // namespace tarveth
