#include "net/wire/plaintext.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(PlainText, ParenthesesThatDoNotMatchAreMadeSquare) {
    EXPECT_EQ(BalancedLine("a (b) c"), "a (b) c");
    EXPECT_EQ(BalancedLine("a) (b"), "a] [b");
    EXPECT_EQ(BalancedLine("((a)"), "[(a)");
    EXPECT_EQ(BalancedLine(")("), "][");
}

TEST(PlainText, ALineHoldsNoControlCharactersAndNoMarkers) {
    EXPECT_EQ(PlainLine("a\tb\r\nc\251sys(d)\x7F"), "a bcsys(d)");
}

TEST(PlainText, AConfirmationIsKnownBeforeItIsWhole) {
    EXPECT_TRUE(LooksLikeConfirmation("nickname set to"));
    EXPECT_TRUE(LooksLikeConfirmation(" NickName Set To Bob"));
    EXPECT_FALSE(LooksLikeConfirmation("nickname set by Bob"));
}

} // namespace
} // namespace tarveth
