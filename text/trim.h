// A text without the blanks around it. Blanks only: tabs and line ends are part of the text.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// As a view into the text.
inline std::string_view TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

// As a text of its own.
inline std::string Trim(std::string_view text) {
    return std::string(TrimBlanks(text));
}

} // namespace tarveth
