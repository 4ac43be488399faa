#include "platform/profile_integer.h"

#include <algorithm>

namespace tarveth::platform {

namespace {

constexpr std::int64_t kMost = std::int64_t{1} << 62;

int DigitOf(char letter) {
    if (letter >= '0' && letter <= '9')
        return letter - '0';
    if (letter >= 'a' && letter <= 'f')
        return letter - 'a' + 10;
    if (letter >= 'A' && letter <= 'F')
        return letter - 'A' + 10;
    return 99;
}

int TakeBase(std::string_view& text) {
    const char letter = text.size() >= 2 && text[0] == '0' ? text[1] : ' ';
    const int base = letter == 'x' ? 16 : letter == 'o' ? 8 : letter == 'b' ? 2 : 10;
    if (base != 10)
        text.remove_prefix(2);
    return base;
}

} // namespace

ProfileInteger ReadProfileInteger(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);

    ProfileInteger number;
    const std::string_view atBase = text;
    const int base = TakeBase(text);
    number.hasDigits = text != atBase; // the 0 of a base prefix counts as a digit
    for (const char letter : text) {
        const int digit = DigitOf(letter);
        if (digit >= base)
            break;
        number.hasDigits = true;
        number.value = number.value > kMost / 16 ? kMost : number.value * base + digit;
        number.wrapped =
            number.wrapped * static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(digit);
    }
    if (negative) {
        number.value = -number.value;
        number.wrapped = 0U - number.wrapped;
    }
    return number;
}

} // namespace tarveth::platform
