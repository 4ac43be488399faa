#include "net/wire/plaintext.h"

#include "net/wire/framing.h"
#include "text/foldcase.h"
#include "text/trim.h"

#include <vector>

namespace tarveth {

bool LooksLikeConfirmation(std::string_view text) {
    const std::string start = FoldCase(TrimBlanks(text).substr(0, kConfirmation.size()));
    return start.starts_with(TrimBlanks(kConfirmation));
}

std::string PlainLine(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (const char c : text) {
        if (c == '\t')
            plain += ' ';
        else if (static_cast<unsigned char>(c) >= ' ' && c != '\x7F' && c != kMarker)
            plain += c;
    }
    return plain;
}

std::string BalancedLine(std::string_view text) {
    std::string line = PlainLine(text);
    std::vector<std::size_t> open;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '(') {
            open.push_back(at);
        } else if (line[at] == ')') {
            if (open.empty())
                line[at] = ']';
            else
                open.pop_back();
        }
    }
    for (const std::size_t at : open)
        line[at] = '[';
    return line;
}

} // namespace tarveth
