#include "platform/short_date.h"

#include <array>
#include <clocale>
#include <ctime>

namespace tarveth::platform {

// The user's locale is used only here: the program stays in the "C" locale, where numbers have a decimal
// point.
std::string ShortDate() {
    const std::time_t now = std::time(nullptr);
    std::tm today{};
    localtime_r(&now, &today);
    locale_t users = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr);
    if (users == nullptr) // the environment names a locale that is not installed
        users = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "C", nullptr);
    std::array<char, 128> text{};
    strftime_l(text.data(), text.size(), "%x", &today, users);
    freelocale(users);
    return text.data();
}

} // namespace tarveth::platform
