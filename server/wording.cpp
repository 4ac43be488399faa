#include "server/wording.h"

#include "net/wire/framing.h"
#include "net/wire/nickname.h"
#include "net/wire/plaintext.h"
#include "text/foldcase.h"
#include "text/trim.h"

#include <algorithm>

namespace tarveth {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

// The characters of a refuse or accept message beside its sentence: the name, the signs, and two nicknames.
constexpr std::size_t kRestOfMessage = 32 + 3 * kLongestNickname;

// Whether some end of the text is a nickname.
bool EndsWithNickname(std::string_view text, const IsNickname& isNickname) {
    const std::size_t most = std::min(text.size(), kLongestNickname);
    for (std::size_t length = 1; length <= most; ++length)
        if (isNickname(text.substr(text.size() - length)))
            return true;
    return false;
}

void BreakConfirmations(std::string& line) {
    constexpr std::string_view kFirstWord = "nickname";
    const std::string folded = FoldCase(line);
    const std::string words = FoldCase(TrimBlanks(kConfirmation));
    for (std::size_t at = folded.find(words); at != std::string::npos; at = folded.find(words, at + 1))
        line[at + kFirstWord.size()] = '-';
}

} // namespace

std::string SignedSentence(std::string_view sentence, std::string_view sender) {
    const std::string line = BalancedLine(sentence.substr(0, kLongestMessage - kRestOfMessage));
    return std::string(sender) + ": " + std::string(TrimBlanks(line));
}

std::string ChatLine(std::string_view speaker, std::string_view text, const IsNickname& isNickname) {
    std::string line(speaker);
    if (EndsWithNickname(speaker.substr(1), isNickname))
        line += ' ';
    line += ": ";
    std::size_t name = line.size(); // where a nickname before the next colon may begin
    for (const char c : text) {
        if (c == ':') {
            if (line.back() != ' ' && EndsWithNickname(std::string_view(line).substr(name), isNickname))
                line += ' ';
            name = line.size() + 1;
        }
        line += c;
    }
    BreakConfirmations(line);
    line.resize(std::min(line.size(), kLongestMessage - kLineEnd.size()));
    return line.append(kLineEnd);
}

} // namespace tarveth
