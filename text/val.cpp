#include "text/val.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace tarveth {

namespace {

std::size_t CountDigits(std::string_view text) {
    return std::min(text.find_first_not_of("0123456789"), text.size());
}

// The length of "12", "12.", "12.5" or ".5" at the begin of the text, 0 if none of these is there.
std::size_t CountMantissa(std::string_view text) {
    const std::size_t whole = CountDigits(text);
    const bool hasPoint = whole < text.size() && text[whole] == '.';
    const std::size_t fraction = hasPoint ? CountDigits(text.substr(whole + 1)) : 0;
    return whole + fraction == 0 ? 0 : whole + fraction + (hasPoint ? 1 : 0);
}

// The length of "E5" or "e-5"; 0 for an E without digits, which is not part of the number.
std::size_t CountExponent(std::string_view text) {
    if (text.empty() || (text[0] != 'E' && text[0] != 'e'))
        return 0;
    const std::size_t sign = text.size() > 1 && (text[1] == '-' || text[1] == '+') ? 1 : 0;
    const std::size_t digits = CountDigits(text.substr(1 + sign));
    return digits == 0 ? 0 : 1 + sign + digits;
}

// Of a number that is out of range: is it too near to zero, rather than too far from it?
bool IsTiny(std::string_view mantissa, std::string_view exponent) {
    const auto point = static_cast<long>(std::min(mantissa.find('.'), mantissa.size()));
    const auto firstDigit = static_cast<long>(mantissa.find_first_of("123456789"));
    long power = 0;
    if (!exponent.empty()) {
        exponent.remove_prefix(exponent[1] == '+' ? 2 : 1);
        if (std::from_chars(exponent.data(), exponent.data() + exponent.size(), power).ec != std::errc())
            return exponent.front() == '-';
    }
    return power < firstDigit - point; // a power may be too large to be added to
}

} // namespace

std::optional<double> LeadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);

    const std::string_view mantissa = text.substr(0, CountMantissa(text));
    if (mantissa.empty())
        return std::nullopt;
    const std::string_view rest = text.substr(mantissa.size());
    const std::string_view exponent = rest.substr(0, CountExponent(rest));
    double value = 0;
    const char* end = mantissa.data() + mantissa.size() + exponent.size();
    if (std::from_chars(mantissa.data(), end, value).ec == std::errc::result_out_of_range)
        value = IsTiny(mantissa, exponent) ? 0 : std::numeric_limits<double>::infinity();
    return negative ? -value : value;
}

double Val(std::string_view text) {
    return LeadingNumber(text).value_or(0);
}

std::int16_t LeadingInt16(std::string_view text) {
    using Limits = std::numeric_limits<std::int16_t>;
    const double within = std::clamp(Val(text), double{Limits::min()}, double{Limits::max()});
    return static_cast<std::int16_t>(std::lrint(within));
}

} // namespace tarveth
