#include "platform/short_date.h"

#include <array>
#include <clocale>
#include <ctime>

namespace tarveth::platform {

// The program itself stays in the "C" locale, in which numbers have their points.
std::string ShortDate() {
    const std::time_t now = std::time(nullptr);
    std::tm today{};
    localtime_r(&now, &today);
    locale_t users = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr);
    if (users == nullptr) // the environment names one that is not installed
        users = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "C", nullptr);
    std::array<char, 128> text{};
    strftime_l(text.data(), text.size(), "%x", &today, users);
    freelocale(users);
    return text.data();
}

} // namespace tarveth::platform
