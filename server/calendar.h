// Dates and times of the calendar as text, always in UTC.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace tarveth {

// "2026-11-22 10:00 UTC", for people.
std::string CalendarText(std::chrono::sys_seconds time);
// "2026-11-22T10:00:00Z", for files.
std::string TimestampText(std::chrono::sys_seconds time);
// Reads "2026-11-22T10:00:00Z" and, for midnight, "2026-11-22"; nothing if the text is no such time.
std::optional<std::chrono::sys_seconds> ParseTimestamp(std::string_view text);

// Reads "90s", "10m", "2h", "7d" and "4w"; nothing if the text is no such time, or longer than a century.
std::optional<std::chrono::seconds> ParseDuration(std::string_view text);

} // namespace tarveth
