#include "platform/short_date.h"
#include "tests/platform/posix/Variable.h"

#include <gtest/gtest.h>

#include <clocale>
#include <ctime>
#include <string>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace tarveth {
namespace {

std::string Today(const char* format) {
    const std::time_t now = std::time(nullptr);
    char text[64] = "";
    std::strftime(text, sizeof text, format, std::localtime(&now));
    return text;
}

// Repeated if midnight has come in between.
void ExpectToday(const char* format) {
#ifdef __SANITIZE_ADDRESS__
    const __lsan::ScopedDisabler glibcs; // it does not give its list of LOCPATH's folders back
#endif
    std::string before;
    std::string date;
    do {
        before = Today(format);
        date = platform::ShortDate();
    } while (before != Today(format));
    EXPECT_EQ(date, before);
}

TEST(ShortDate, IsWrittenAsTheUserWritesIt) {
    const Variable folder("LOCPATH", TEST_LOCALES);
    const Variable german("LC_ALL", "de_DE.UTF-8");
    ExpectToday("%d.%m.%Y");
    EXPECT_EQ(*std::localeconv()->decimal_point, '.') << "numbers stay as they are";
}

TEST(ShortDate, IsThePlainOneWhereTheUsersLocaleIsNotInstalled) {
    const Variable folder("LOCPATH", TEST_LOCALES);
    const Variable missing("LC_ALL", "xx_XX.UTF-8");
    ExpectToday("%m/%d/%y");
}

} // namespace
} // namespace tarveth
