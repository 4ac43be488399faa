#include "server/calendar.h"

#include <array>
#include <charconv>
#include <cstdio>

namespace tarveth {

namespace {

using namespace std::chrono;

struct Unit {
    char letter;
    seconds length;
};

constexpr std::array kUnits = {Unit{'s', seconds(1)}, Unit{'m', minutes(1)}, Unit{'h', hours(1)},
                               Unit{'d', days(1)}, Unit{'w', weeks(1)}};

constexpr seconds kLongest = years(100);

// The parts of a time, to be printed.
struct Parts {
    int year;
    unsigned month, day, hour, minute, second;
};

Parts PartsOf(sys_seconds time) {
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    return {int(date.year()),
            unsigned(date.month()),
            unsigned(date.day()),
            static_cast<unsigned>(clock.hours().count()),
            static_cast<unsigned>(clock.minutes().count()),
            static_cast<unsigned>(clock.seconds().count())};
}

// Takes a number of that many digits, and the sign that must follow it, unless that is 0; nothing if the text
// does not begin so.
std::optional<unsigned> TakeNumber(std::string_view& text, std::size_t digits, char sign) {
    unsigned number = 0;
    const char* last = text.data() + std::min(digits, text.size());
    const auto [end, error] = std::from_chars(text.data(), last, number);
    if (error != std::errc() || end != text.data() + digits)
        return std::nullopt;
    text.remove_prefix(digits);
    if (sign == 0)
        return number;
    if (!text.starts_with(sign))
        return std::nullopt;
    text.remove_prefix(1);
    return number;
}

std::optional<sys_days> TakeDay(std::string_view& text) {
    const auto year = TakeNumber(text, 4, '-');
    const auto month = year ? TakeNumber(text, 2, '-') : std::nullopt;
    const auto day = month ? TakeNumber(text, 2, 0) : std::nullopt;
    if (!day)
        return std::nullopt;
    const year_month_day date(std::chrono::year(static_cast<int>(*year)), std::chrono::month(*month),
                              std::chrono::day(*day));
    return date.ok() ? std::optional(sys_days(date)) : std::nullopt;
}

} // namespace

std::string CalendarText(sys_seconds time) {
    const Parts p = PartsOf(time);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02u:%02u UTC", p.year, p.month, p.day, p.hour,
                  p.minute);
    return text.data();
}

std::string TimestampText(sys_seconds time) {
    const Parts p = PartsOf(time);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02u:%02u:%02uZ", p.year, p.month, p.day, p.hour,
                  p.minute, p.second);
    return text.data();
}

std::optional<sys_seconds> ParseTimestamp(std::string_view text) {
    const auto day = TakeDay(text);
    if (!day || text.empty())
        return day;
    if (!text.starts_with('T'))
        return std::nullopt;
    text.remove_prefix(1);
    const auto hour = TakeNumber(text, 2, ':');
    const auto minute = hour ? TakeNumber(text, 2, ':') : std::nullopt;
    const auto second = minute ? TakeNumber(text, 2, 'Z') : std::nullopt;
    if (!second || !text.empty() || *hour > 23 || *minute > 59 || *second > 59)
        return std::nullopt;
    return *day + hours(*hour) + minutes(*minute) + seconds(*second);
}

std::optional<seconds> ParseDuration(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end + 1 != text.data() + text.size() || number <= 0)
        return std::nullopt;
    for (const Unit& unit : kUnits)
        if (unit.letter == *end && number <= kLongest / unit.length)
            return number * unit.length;
    return std::nullopt;
}

} // namespace tarveth
