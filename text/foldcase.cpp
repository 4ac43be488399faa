#include "text/foldcase.h"

#include <algorithm>

namespace tarveth {

namespace {

char FoldAsciiLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// Most accented letters stand 32 places before their small ones, as A to Z do; a few stand elsewhere, and the
// multiplication sign stands among them.
char FoldLetter(char letter) {
    const auto c = static_cast<unsigned char>(letter);
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return static_cast<char>(c + 0x20);
    if (c == 0x8A || c == 0x8C || c == 0x8E)
        return static_cast<char>(c + 0x10);
    return c == 0x9F ? '\xFF' : FoldAsciiLetter(letter);
}

std::string FoldEach(std::string_view text, char (*fold)(char)) {
    std::string folded(text);
    std::ranges::transform(folded, folded.begin(), fold);
    return folded;
}

} // namespace

std::string FoldAscii(std::string_view text) {
    return FoldEach(text, FoldAsciiLetter);
}

std::string FoldCase(std::string_view text) {
    return FoldEach(text, FoldLetter);
}

} // namespace tarveth
