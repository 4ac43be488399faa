// Reads the number at the beginning of an INI value by the rules of GetPrivateProfileInt.
#pragma once

#include <cstdint>
#include <string_view>

namespace tarveth::platform {

struct ProfileInteger {
    bool hasDigits = false; // false if the text does not begin with a number, which counts as 0
    std::int64_t value = 0; // exact up to 2^58, beyond that only of the right sign and too large for 32 bits
    std::uint32_t wrapped = 0; // modulo 2^32, the result of GetPrivateProfileInt

    friend bool operator==(const ProfileInteger&, const ProfileInteger&) = default;
};

// Reads blanks, a sign, and decimal digits, or after "0x", "0o" or "0b" (in small letters) digits of that
// base.
ProfileInteger ReadProfileInteger(std::string_view text);

} // namespace tarveth::platform
