#include "server/names.h"
#include "server/wording.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(Nicknames, APlainOneIsKept) {
    EXPECT_EQ(CleanNickname("Ann"), "Ann");
    EXPECT_EQ(CleanNickname("J\xF6rg the [2nd] <-> 'x'!"), "J\xF6rg the [2nd] <-> 'x'!");
}

TEST(Nicknames, WhatNoneMayHoldIsLeftOut) {
    EXPECT_EQ(CleanNickname("A(n)n,\"|\251\256"), "Ann");
    EXPECT_EQ(CleanNickname("A\r\nn\tn\x7F\x01"), "Ann");
    EXPECT_EQ(CleanNickname("A\xA0n\xADn\x81"), "Ann");
}

TEST(Nicknames, BlanksDoNotTellTwoApart) {
    EXPECT_EQ(CleanNickname("  Ann   of  Green "), "Ann of Green");
}

TEST(Nicknames, ThirtyTwoCharactersAreTheMost) {
    EXPECT_EQ(CleanNickname(std::string(32, 'x')), std::string(32, 'x'));
    EXPECT_EQ(CleanNickname(std::string(33, 'x')), std::string(32, 'x'));
    EXPECT_EQ(CleanNickname(std::string(31, 'x') + " yz"), std::string(31, 'x'));
}

TEST(Nicknames, NothingLeftIsAPlayer) {
    EXPECT_EQ(CleanNickname(""), "Player");
    EXPECT_EQ(CleanNickname(" (,) "), "Player");
}

TEST(Nicknames, NoneCanBeTakenForTheServersConfirmation) {
    EXPECT_EQ(CleanNickname("Nickname set to Bob"), "Player");
    EXPECT_EQ(CleanNickname("nickname  set to"), "Player");
    EXPECT_EQ(CleanNickname("nick(name set to x"), "Player");
    EXPECT_EQ(CleanNickname("nickname"), "nickname");
}

TEST(Nicknames, CaseIsFoldedInTheWiresCodePage) {
    EXPECT_EQ(FoldCase("ANN \xC4\xD6\xDC\x8A\x9F"), "ann \xE4\xF6\xFC\x9A\xFF");
    EXPECT_EQ(FoldCase("\xD7\xDF"), "\xD7\xDF");
}

TEST(Nicknames, OneThatGoesOnBehindAColonIsOfTheSameStem) {
    EXPECT_EQ(NicknameStem("Ann: hello"), "ann");
    EXPECT_EQ(NicknameStem("Ann"), "ann");
    EXPECT_EQ(NicknameStem(":-)"), ":-)");
}

TEST(Nicknames, AVariantFits) {
    EXPECT_EQ(NicknameVariant("Ann", 2), "Ann2");
    EXPECT_EQ(NicknameVariant("Ann: x", 13), "Ann13");
    EXPECT_EQ(NicknameVariant(std::string(32, 'x'), 10), std::string(30, 'x') + "10");
    EXPECT_EQ(NicknameVariant(":-)", 2), ":-)2");
}

TEST(Wording, ParenthesesThatDoNotMatchAreMadeSquare) {
    EXPECT_EQ(BalancedLine("a (b) c"), "a (b) c");
    EXPECT_EQ(BalancedLine("a) (b"), "a] [b");
    EXPECT_EQ(BalancedLine("((a)"), "[(a)");
    EXPECT_EQ(BalancedLine(")("), "][");
}

TEST(Wording, ALineHoldsNoControlCharactersAndNoMarkers) {
    EXPECT_EQ(PlainLine("a\tb\r\nc\251sys(d)\x7F"), "a bcsys(d)");
}

TEST(Wording, ASentenceNamesItsSender) {
    EXPECT_EQ(SignedSentence("[Auto] ann is in a game already.", "Ann"), "[Auto] ann is in a game already.");
    EXPECT_EQ(SignedSentence("The lobby closes in 5 minutes.", "Ann"), "Ann: The lobby closes in 5 minutes.");
    EXPECT_EQ(SignedSentence("nickname set to Ann", "Ann"), "Ann: nickname set to Ann");
    EXPECT_EQ(SignedSentence("", "Ann"), "Ann: ");
}

} // namespace
} // namespace tarveth
