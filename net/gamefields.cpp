#include "net/gamefields.h"

#include "text/trim.h"
#include "text/val.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace tarveth {

GameFields::GameFields(std::string_view arguments) : whole_(arguments) {
    // Not SplitFields: squares come by the million, and this needs no memory of its own.
    std::size_t begin = 0;
    while (count_ < kMost) {
        const std::size_t comma = arguments.find(',', begin);
        fields_[count_++] = arguments.substr(begin, comma - begin);
        if (comma == std::string_view::npos)
            break;
        begin = comma + 1;
    }
}

std::string_view GameFields::Text(std::size_t field) const {
    return field >= 1 && field <= count_ ? TrimBlanks(fields_[field - 1]) : std::string_view();
}

std::optional<std::int16_t> GameFields::Number(std::size_t field) const {
    using Limits = std::numeric_limits<std::int16_t>;
    const std::string_view text = Text(field);
    // Nearly all are plain whole numbers, and squares come by the million.
    std::int16_t plain = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), plain);
    if (result.ec == std::errc() && result.ptr == text.data() + text.size())
        return plain;
    const auto number = LeadingNumber(text);
    const double whole = std::nearbyint(number.value_or(0));
    if (!number || whole < Limits::min() || whole > Limits::max())
        return std::nullopt;
    return static_cast<std::int16_t>(whole);
}

std::optional<std::int16_t> GameFields::Number(std::size_t field, int least, int most) const {
    const std::optional<std::int16_t> number = Number(field);
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

} // namespace tarveth
