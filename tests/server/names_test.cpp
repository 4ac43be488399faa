#include "server/names.h"

#include "server/wording.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(Nicknames, TheStemEndsAtAColon) {
    EXPECT_EQ(NicknameStem("Ann: hello"), "ann");
    EXPECT_EQ(NicknameStem("Ann"), "ann");
    EXPECT_EQ(NicknameStem(":-)"), ":-)");
}

TEST(Nicknames, AVariantIsNoLongerThanANicknameMayBe) {
    EXPECT_EQ(NicknameVariant("Ann", 2), "Ann2");
    EXPECT_EQ(NicknameVariant("Ann: x", 13), "Ann13");
    EXPECT_EQ(NicknameVariant(std::string(32, 'x'), 10), std::string(30, 'x') + "10");
    EXPECT_EQ(NicknameVariant(":-)", 2), ":-)2");
}

TEST(Wording, ASentenceAlwaysNamesItsSender) {
    EXPECT_EQ(SignedSentence("[Auto] ann is in a game already.", "Ann"), "[Auto] ann is in a game already.");
    EXPECT_EQ(SignedSentence("The lobby closes in 5 minutes.", "Ann"), "Ann: The lobby closes in 5 minutes.");
    EXPECT_EQ(SignedSentence("nickname set to Ann", "Ann"), "Ann: nickname set to Ann");
    EXPECT_EQ(SignedSentence("", "Ann"), "Ann: ");
}

} // namespace
} // namespace tarveth
