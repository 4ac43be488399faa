#include "net/wire/nickname.h"

#include "net/wire/modPARSER.h"
#include "net/wire/plaintext.h"

namespace tarveth {

namespace {

constexpr std::string_view kForbidden = "(),\"|\xA9\xAE";
constexpr std::string_view kNobody = "Player";

// Those that show nothing, or that look like a blank: such nicknames would be taken for others.
constexpr std::string_view kUnseen = "\x7F\x81\x8D\x8F\x90\x9D\xA0\xAD";

bool MayBeInNickname(char c) {
    const bool control = static_cast<unsigned char>(c) < ' ';
    return !control && kForbidden.find(c) == std::string_view::npos &&
           kUnseen.find(c) == std::string_view::npos;
}

char FoldedLetter(char letter) {
    const auto c = static_cast<unsigned char>(letter);
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
        return static_cast<char>(c + 0x20);
    if (c == 0x8A || c == 0x8C || c == 0x8E)
        return static_cast<char>(c + 0x10);
    return c == 0x9F ? '\xFF' : letter;
}

} // namespace

std::string FoldCase(std::string_view text) {
    std::string folded(text);
    for (char& c : folded)
        c = FoldedLetter(c);
    return folded;
}

std::string CleanNickname(std::string_view wanted) {
    std::string clean;
    for (const char c : wanted) {
        const bool idleBlank = c == ' ' && (clean.empty() || clean.back() == ' ');
        if (MayBeInNickname(c) && !idleBlank && clean.size() < kLongestNickname)
            clean += c;
    }
    clean = TrimBlanks(clean);
    return clean.empty() || LooksLikeConfirmation(clean) ? std::string(kNobody) : clean;
}

} // namespace tarveth
