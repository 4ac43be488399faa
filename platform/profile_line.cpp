#include "platform/profile_line.h"

#include <algorithm>

namespace tarveth::platform {

namespace {

// Control-Z once marked the end of a text file, and some editors still write it.
constexpr std::string_view kBlanks = " \t\v\f\x1a";

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool FitsALine(std::string_view text) {
    return text.find_first_of(std::string_view("\r\n\0", 3)) == text.npos;
}

} // namespace

std::string_view TrimmedProfileText(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

bool SameProfileName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Lower(x) == Lower(y); });
}

std::string_view BareValue(std::string_view value) {
    value = TrimmedProfileText(value);
    const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'');
    return quoted && value.front() == value.back() ? value.substr(1, value.size() - 2) : value;
}

bool ReadsBack(std::string_view section, std::string_view key, std::string_view value) {
    return !section.empty() && !key.empty() && key.find('=') == key.npos && key.front() != ';' &&
           key.front() != '[' && FitsALine(section) && FitsALine(key) && FitsALine(value);
}

} // namespace tarveth::platform
