#include "text/versionnumber.h"

#include "text/trim.h"
#include "text/val.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace tarveth {

namespace {

std::optional<int> ReadPart(std::string_view part, VersionForm form) {
    if (form == VersionForm::Leading)
        return LeadingInt16(part);
    constexpr int kLargest = 9999;
    part = TrimBlanks(part);
    int number = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), number);
    const bool whole = error == std::errc() && end == part.data() + part.size();
    return whole && number >= 0 && number <= kLargest ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<int> VersionNumber(std::string_view version, VersionForm form) {
    int sum = 0;
    bool ended = false;
    for (const int weight : {10000, 1000, 1}) {
        if (ended)
            break;
        const std::size_t point = version.find('.');
        const auto part = ReadPart(version.substr(0, point), form);
        if (!part)
            return std::nullopt;
        sum += *part * weight;
        ended = point == std::string_view::npos;
        version.remove_prefix(ended ? version.size() : point + 1);
    }
    return sum;
}

} // namespace tarveth
