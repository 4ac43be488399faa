#include "platform/short_date.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include <windows.h>

namespace tarveth {
namespace {

// The user's own form of dates for as long as this lives.
class DateForm {
public:
    explicit DateForm(const wchar_t* form) {
        GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SSHORTDATE, before_, 80);
        SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, form);
    }
    ~DateForm() { SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, before_); }
    DateForm(const DateForm&) = delete;
    DateForm& operator=(const DateForm&) = delete;

private:
    wchar_t before_[80] = L"";
};

std::string Today(const char* format) {
    const std::time_t now = std::time(nullptr);
    char text[64] = "";
    std::strftime(text, sizeof text, format, std::localtime(&now));
    return text;
}

TEST(ShortDate, IsWrittenAsTheUserWritesIt) {
    const DateForm german(L"dd.MM.yyyy");
    std::string before;
    std::string date;
    do { // again where midnight has come between
        before = Today("%d.%m.%Y");
        date = platform::ShortDate();
    } while (before != Today("%d.%m.%Y"));
    EXPECT_EQ(date, before);
}

} // namespace
} // namespace tarveth
