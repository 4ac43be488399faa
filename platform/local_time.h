// Moments as people read them: date and time of day where the user is.
#pragma once

#include <cstdint>

namespace tarveth::platform {

struct LocalTime {
    int year = 0;
    int month = 0; // 1 to 12
    int day = 0;
    int hour = 0;
    int minute = 0;
};

// The end of the year 9999.
inline constexpr std::int64_t kLastMoment = 253'402'300'799;

// Converts seconds since the beginning of 1970 in universal time. A moment before, or after kLastMoment,
// gives zeros.
LocalTime ToLocalTime(std::int64_t moment);

} // namespace tarveth::platform
