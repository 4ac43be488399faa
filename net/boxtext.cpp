#include "net/boxtext.h"

#include <algorithm>

namespace tarveth {

namespace {

constexpr std::size_t kMostLines = 20;
constexpr std::size_t kLongestLine = 200;
constexpr char kEllipsis = '\x85';

// Takes the first line, without its end, from the front of the text.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + (text.substr(end, 2) == "\r\n" ? 2 : 1), text.size()));
    return line;
}

std::string WithThousands(std::size_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3;)
        digits.insert(at -= 3, 1, ',');
    return digits;
}

} // namespace

std::string BoxText(std::string_view text) {
    std::string cut;
    for (std::size_t lines = 0; lines < kMostLines && !text.empty(); ++lines) {
        if (lines > 0)
            cut += '\n';
        const std::string_view line = TakeLine(text);
        cut += line.substr(0, line.size() > kLongestLine ? kLongestLine - 1 : kLongestLine);
        if (line.size() > kLongestLine)
            cut += kEllipsis;
    }
    std::size_t more = 0;
    for (; !text.empty(); ++more)
        TakeLine(text);
    if (more > 0)
        cut +=
            '\n' + (kEllipsis + ("and " + WithThousands(more) + (more == 1 ? " more line" : " more lines")));
    return cut;
}

} // namespace tarveth
