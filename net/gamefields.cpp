#include "net/gamefields.h"

#include "text/trim.h"

#include <charconv>

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
    const std::string_view text = Text(field);
    std::int16_t number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        return std::nullopt;
    return number;
}

std::optional<std::int16_t> GameFields::Number(std::size_t field, int least, int most) const {
    const std::optional<std::int16_t> number = Number(field);
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

} // namespace tarveth
