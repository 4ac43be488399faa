#include "platform/local_time.h"

#include <ctime>

namespace tarveth::platform {

LocalTime ToLocalTime(std::int64_t moment) {
    if (moment < 0 || moment > kLastMoment)
        return {};
    const auto time = static_cast<std::time_t>(moment);
    std::tm parts{};
    if (localtime_r(&time, &parts) == nullptr)
        return {};
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min};
}

} // namespace tarveth::platform
