#include "server/names.h"

#include "net/wire/nickname.h"
#include "text/foldcase.h"
#include "text/trim.h"

#include <algorithm>
#include <array>

namespace tarveth {

namespace {

// Signs without a place in a skeleton: between or around letters they are easily overlooked.
constexpr std::string_view kIgnoredSigns =
    " .,-_'`*~^\"\x82\x84\x88\x91\x92\x93\x94\x95\x96\x97\x98\xA8\xAF\xB4\xB7\xB8";

constexpr std::string_view kDigits = "0123456789";

struct LookAlikes {
    char as;
    std::string_view letters; // after FoldCase
};

// FoldCase has made all letters small, so that "I" and "l" meet in "i". Accents are left out.
constexpr std::array kLookAlikes = {
    LookAlikes{'a', "@\xAA\xE0\xE1\xE2\xE3\xE4\xE5"},
    LookAlikes{'b', "\xDF\xFE"},
    LookAlikes{'c', "\xA2\xE7"},
    LookAlikes{'d', "\xD0\xF0"},
    LookAlikes{'e', "\x80\xE8\xE9\xEA\xEB"},
    LookAlikes{'f', "\x83"},
    LookAlikes{'l', "1!i|\xA1\xA6\xB9\xEC\xED\xEE\xEF"},
    LookAlikes{'n', "\xF1"},
    LookAlikes{'o', "0\xB0\xBA\xF2\xF3\xF4\xF5\xF6\xF8"},
    LookAlikes{'s', "$\x9A"},
    LookAlikes{'u', "\xB5\xF9\xFA\xFB\xFC"},
    LookAlikes{'x', "\xD7"},
    LookAlikes{'y', "\xA5\xFD\xFF"},
    LookAlikes{'z', "\x9E"},
    LookAlikes{'2', "\xB2"},
    LookAlikes{'3', "\xB3"},
};

constexpr std::array<char, 256> SkeletonTable() {
    std::array<char, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char>(i);
    for (const LookAlikes& row : kLookAlikes)
        for (const char letter : row.letters)
            table[static_cast<unsigned char>(letter)] = row.as;
    return table;
}

constexpr std::array<char, 256> kSkeletonTable = SkeletonTable();

// Letters that look like another letter when they stand beside each other.
void ReplacePair(std::string& text, std::string_view pair, char as) {
    for (std::size_t at = text.find(pair); at != std::string::npos; at = text.find(pair, at + 1))
        text.replace(at, pair.size(), 1, as);
}

std::string WithoutDigitsBehind(std::string_view text) {
    return std::string(text.substr(0, text.find_last_not_of(kDigits) + 1));
}

} // namespace

std::string NicknameSkeleton(std::string_view nickname) {
    std::string skeleton;
    for (const char c : FoldCase(nickname)) {
        if (c == '\xE6')
            skeleton += "ae";
        else if (c == '\x9C')
            skeleton += "oe";
        else if (kIgnoredSigns.find(c) == std::string_view::npos)
            skeleton += kSkeletonTable.at(static_cast<unsigned char>(c));
    }
    ReplacePair(skeleton, "rn", 'm');
    ReplacePair(skeleton, "vv", 'w');
    return skeleton.empty() ? FoldCase(TrimBlanks(nickname)) : skeleton;
}

std::string LobbyNickname(std::string_view wanted) {
    std::string text(wanted);
    std::erase(text, ':');
    return CleanNickname(text);
}

std::string NicknameVariant(std::string_view nickname, int number) {
    const std::string digits = std::to_string(number);
    return std::string(TrimBlanks(nickname.substr(0, kLongestNickname - digits.size()))) + digits;
}

ReservedNames::ReservedNames(const std::vector<std::string>& names) {
    for (const char* name : {"Server", "Admin", "Lobby", "Tarveth"})
        skeletons_.insert(NicknameSkeleton(name));
    for (const std::string& name : names)
        skeletons_.insert(NicknameSkeleton(name));
}

bool ReservedNames::Forbids(std::string_view nickname) const {
    const auto looksReserved = [this](std::string_view text) {
        return Holds(text) || Holds(WithoutDigitsBehind(text));
    };
    if (looksReserved(nickname))
        return true;
    std::size_t begin = 0;
    while (begin < nickname.size()) {
        const std::size_t end = std::min(nickname.find_first_of(kIgnoredSigns, begin), nickname.size());
        if (end > begin && looksReserved(nickname.substr(begin, end - begin)))
            return true;
        begin = end + 1;
    }
    return false;
}

} // namespace tarveth
