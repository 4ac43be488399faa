// Rules for the lines of INI files: how names and values are compared and trimmed.
#pragma once

#include <string_view>

namespace tarveth::platform {

// Cuts off the blanks around a text.
std::string_view TrimmedProfileText(std::string_view text);

// Whether both are the same name of a section or key; capitals and small letters are equal.
bool SameProfileName(std::string_view a, std::string_view b);

// Cuts off the blanks around a value, and then a pair of equal quotes that encloses it.
std::string_view BareValue(std::string_view value);

// Whether a value that is written under this section and key, both trimmed, would be read back from there.
bool ReadsBack(std::string_view section, std::string_view key, std::string_view value);

} // namespace tarveth::platform
