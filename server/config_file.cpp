#include "server/config_file.h"

namespace tarveth {

namespace {

std::string TrimSpace(const std::string& text) {
    constexpr const char* kSpace = " \t\r";
    const std::size_t begin = text.find_first_not_of(kSpace);
    if (begin == std::string::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(kSpace) + 1 - begin);
}

std::string WithoutQuotes(const std::string& value) {
    const bool quoted = value.size() >= 2 && value.front() == '"' && value.back() == '"';
    return quoted ? value.substr(1, value.size() - 2) : value;
}

} // namespace

std::vector<ConfigLine> ReadConfigLines(std::istream& file) {
    std::vector<ConfigLine> lines;
    std::string text;
    for (int number = 1; std::getline(file, text); ++number) {
        text = TrimSpace(text);
        if (text.empty() || text.front() == '#')
            continue;
        const std::size_t equals = text.find('=');
        ConfigLine line{number, {}};
        if (equals != std::string::npos)
            line.word = "--" + TrimSpace(text.substr(0, equals)) + "=" +
                        WithoutQuotes(TrimSpace(text.substr(equals + 1)));
        lines.push_back(line);
    }
    return lines;
}

} // namespace tarveth
