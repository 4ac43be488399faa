// The number that a text begins with.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarveth {

// Leading blanks, a sign, digits with a point among them, and a power of ten behind E are taken, whatever the
// user's country writes; all that follows is passed over. 0 when the text begins with no number, infinity
// when the number is greater than any.
double Val(std::string_view text);

// The same, but nothing where the text begins with no number.
std::optional<double> LeadingNumber(std::string_view text);

// Val as a whole number, halves to even; one that is too far from zero for 16 bits counts as the last
// that is not.
std::int16_t LeadingInt16(std::string_view text);

} // namespace tarveth
