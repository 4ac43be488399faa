// What a line of an INI file may hold.
#pragma once

#include <string_view>

namespace tarveth::platform {

// Without the blanks around it.
std::string_view TrimmedProfileText(std::string_view text);

// Whether both name the same section or key: letters match in any case.
bool SameProfileName(std::string_view a, std::string_view b);

// The value without the blanks around it, and without the pair of equal quotes that encloses it.
std::string_view BareValue(std::string_view value);

// Whether a value would be found again under this section and key, both trimmed, if it was written there.
bool ReadsBack(std::string_view section, std::string_view key, std::string_view value);

} // namespace tarveth::platform
