// The number that a value of an INI file begins with, as the private-profile functions see it.
#pragma once

#include <cstdint>
#include <string_view>

namespace tarveth::platform {

struct ProfileInteger {
    bool hasDigits = false;    // false: the text does not begin with a number, which counts as 0
    std::int64_t value = 0;    // exact up to 2^58, only somewhat so beyond
    std::uint32_t wrapped = 0; // modulo 2^32, what the functions give

    friend bool operator==(const ProfileInteger&, const ProfileInteger&) = default;
};

// Blanks, a sign, then decimal digits, or after "0x", "0o", "0b" (small letters) those of that base.
ProfileInteger ReadProfileInteger(std::string_view text);

} // namespace tarveth::platform
