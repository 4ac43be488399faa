#include "platform/profile_integer.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

using platform::ProfileInteger;
using platform::ReadProfileInteger;

TEST(ProfileInteger, TellsANumberFromATextThatCountsAsZero) {
    EXPECT_EQ(ReadProfileInteger("0"), (ProfileInteger{true, 0, 0}));
    EXPECT_EQ(ReadProfileInteger(" -12abc"), (ProfileInteger{true, -12, 0U - 12U}));
    for (const char* text : {"", " ", "-", "+", "--1", "- 1", "abc", ".5"})
        EXPECT_EQ(ReadProfileInteger(text), ProfileInteger{}) << text;
}

TEST(ProfileInteger, KeepsTheValueThatTheFunctionsWrap) {
    EXPECT_EQ(ReadProfileInteger("4294967297"), (ProfileInteger{true, 4294967297, 1}));
    EXPECT_EQ(ReadProfileInteger("-4294967297"), (ProfileInteger{true, -4294967297, 0xffffffff}));
    EXPECT_EQ(ReadProfileInteger("0x100000001"), (ProfileInteger{true, 4294967297, 1}));
}

TEST(ProfileInteger, StaysHugeHoweverManyDigitsThereAre) {
    EXPECT_GT(ReadProfileInteger(std::string(300, '9')).value, std::int64_t{1} << 58);
    EXPECT_LT(ReadProfileInteger("-0x1" + std::string(300, '0')).value, -(std::int64_t{1} << 58));
}

} // namespace
} // namespace tarveth
