#include "net/wire/nickname.h"

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

} // namespace
} // namespace tarveth
