#include "server/names.h"

#include "net/wire/modPARSER.h"
#include "net/wire/nickname.h"

namespace tarveth {

namespace {

// Gives the position of the colon that ends the stem; npos if the whole nickname is its stem.
std::size_t StemColon(std::string_view nickname) {
    const std::size_t colon = nickname.find(':');
    return colon == std::string_view::npos || TrimBlanks(nickname.substr(0, colon)).empty()
               ? std::string_view::npos
               : colon;
}

} // namespace

std::string NicknameStem(std::string_view nickname) {
    return FoldCase(TrimBlanks(nickname.substr(0, StemColon(nickname))));
}

std::string NicknameVariant(std::string_view nickname, int number) {
    const std::string digits = std::to_string(number);
    std::string_view stem = nickname.substr(0, StemColon(nickname));
    stem = TrimBlanks(stem.substr(0, kLongestNickname - digits.size()));
    return std::string(stem) + digits;
}

} // namespace tarveth
