#include "text/val.h"

#include "tests/platform/CommaLocale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace tarveth {
namespace {

TEST(Val, TakesTheLeadingNumericPart) {
    EXPECT_EQ(Val("1200"), 1200);
    EXPECT_EQ(Val(" 1200"), 1200);
    EXPECT_EQ(Val("\t -15"), -15);
    EXPECT_EQ(Val("+7"), 7);
    EXPECT_EQ(Val("1200.5 twips"), 1200.5);
    EXPECT_EQ(Val("12abc"), 12);
    EXPECT_EQ(Val("1.2.3"), 1.2);
    EXPECT_EQ(Val("1,5"), 1);
}

TEST(Val, APointMayLackDigitsOnOneSide) {
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("-.5"), -0.5);
    EXPECT_EQ(Val("5."), 5);
    EXPECT_EQ(Val("."), 0);
    EXPECT_EQ(Val("-."), 0);
}

TEST(Val, TakesAnExponentWithDigits) {
    EXPECT_EQ(Val("1e3"), 1000);
    EXPECT_EQ(Val("1E+07"), 1e7);
    EXPECT_EQ(Val("15e-1x"), 1.5);
    EXPECT_EQ(Val("2e"), 2);
    EXPECT_EQ(Val("2e+"), 2);
    EXPECT_EQ(Val("e5"), 0);
}

TEST(Val, IsZeroForATextThatBeginsWithNoNumber) {
    for (const char* text : {"", " ", "abc", "-", "+-1", "--1", "inf", "nan", "-infinity", "#1", "(1)"})
        EXPECT_EQ(Val(text), 0) << text;
}

TEST(Val, OutOfRangeIsInfiniteOrZero) {
    EXPECT_EQ(Val("1e999"), HUGE_VAL);
    EXPECT_EQ(Val("-1e999"), -HUGE_VAL);
    EXPECT_EQ(Val("10e9223372036854775807"), HUGE_VAL);
    EXPECT_EQ(Val("1e-9223372036854775808"), 0);
    EXPECT_EQ(Val(std::string(400, '9')), HUGE_VAL);
    EXPECT_EQ(Val(std::string(400, '9') + "e-5"), HUGE_VAL);
    EXPECT_EQ(Val("1e-999"), 0);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(Val("1e99999999999999999999"), HUGE_VAL);
    EXPECT_EQ(Val("1e-99999999999999999999"), 0);
    EXPECT_EQ(Val("0e999"), 0);
}

TEST(Val, DoesNotDependOnTheUsersCountry) {
    for (const char* name : kCommaLocales) {
        const CommaLocale locale(name);
        ASSERT_STREQ(std::localeconv()->decimal_point, ",") << name;
        EXPECT_EQ(Val("1200.5"), 1200.5) << name;
        EXPECT_EQ(Val("1200,5"), 1200) << name;
    }
}

} // namespace
} // namespace tarveth
