#include "text/codepage.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

std::string Byte(int number) {
    return {static_cast<char>(number)};
}

TEST(CodePage, PlainCharactersAreThemselves) {
    EXPECT_EQ(FromWire("Ann: (hello)\t~\x7F"), "Ann: (hello)\t~\x7F");
    EXPECT_EQ(ToWire("Ann: (hello)\t~\x7F"), "Ann: (hello)\t~\x7F");
}

TEST(CodePage, AccentedLettersAndSigns) {
    EXPECT_EQ(FromWire("\xC4\xF6\xFF\xA9\xAE\xA0"), "\u00C4\u00F6\u00FF\u00A9\u00AE\u00A0");
    EXPECT_EQ(ToWire("\u00C4\u00F6\u00FF\u00A9\u00AE\u00A0"), "\xC4\xF6\xFF\xA9\xAE\xA0");
}

TEST(CodePage, ItsOwnSignsStandBetween80And9F) {
    EXPECT_EQ(FromWire("\x80\x82\x8A\x91\x96\x99\x9F"), "\u20AC\u201A\u0160\u2018\u2013\u2122\u0178");
    EXPECT_EQ(ToWire("\u20AC\u201A\u0160\u2018\u2013\u2122\u0178"), "\x80\x82\x8A\x91\x96\x99\x9F");
}

TEST(CodePage, TheBytesItLeavesOutAreControlCharacters) {
    EXPECT_EQ(FromWire("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
    EXPECT_EQ(ToWire("\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D"), "\x81\x8D\x8F\x90\x9D");
}

TEST(CodePage, EveryByteComesBack) {
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(ToWire(FromWire(Byte(byte))), Byte(byte)) << byte;
}

TEST(CodePage, WhatTheWireCannotCarryIsAQuestionMark) {
    EXPECT_EQ(ToWire("a\u0100b\u4E2Dc\U0001F600d"), "a?b?c?d");
    EXPECT_EQ(ToWire("\xC2\x80"), "?"); // a control character whose byte is the euro sign
}

TEST(CodePage, EachByteThatIsNoUtf8IsAQuestionMark) {
    EXPECT_EQ(ToWire("a\x80z"), "a?z");
    EXPECT_EQ(ToWire("a\xC3"), "a?");
    EXPECT_EQ(ToWire("a\xC3z"), "a?z");
    EXPECT_EQ(ToWire("\xE2\x82z"), "??z");
    EXPECT_EQ(ToWire("\xC0\xAF\xF8\xFF"), "????");
    EXPECT_EQ(ToWire("\xE0\x80\xAF"), "???"); // a character in more bytes than it needs
}

} // namespace
} // namespace tarveth
