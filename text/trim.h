// A text without the blanks around it.
#pragma once

#include <string>
#include <string_view>

namespace tarveth {

// Blanks only: tabs and line ends are part of the text.
inline std::string Trim(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos)
        return {};
    return std::string(text.substr(begin, text.find_last_not_of(' ') + 1 - begin));
}

} // namespace tarveth
