#include "net/wire/framing.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarveth {
namespace {

using Strings = std::vector<std::string>;

// What the bytes hold: "name|arguments" for a message, "text:" and a run of text, "too long".
Strings FramesOf(Framer& framer, std::string_view bytes) {
    Strings found;
    while (const auto frame = framer.Next(bytes)) {
        if (frame->kind == Frame::Kind::Message) {
            EXPECT_EQ(std::string(frame->name) + "(" + std::string(frame->arguments) + ")", frame->whole);
            found.push_back(std::string(frame->name) + "|" + std::string(frame->arguments));
        } else if (frame->kind == Frame::Kind::TooLong) {
            found.emplace_back("too long");
        } else if (!found.empty() && found.back().starts_with("text:")) {
            found.back() += frame->whole;
        } else {
            found.push_back("text:" + std::string(frame->whole));
        }
    }
    EXPECT_TRUE(bytes.empty());
    return found;
}

Strings FramesOf(std::string_view bytes) {
    Framer framer;
    return FramesOf(framer, bytes);
}

TEST(Framing, AMessageEndsWhereItsParenthesesClose) {
    EXPECT_EQ(FramesOf("\251sys(a(b)c)"), (Strings{"sys|a(b)c"}));
    EXPECT_EQ(FramesOf("\251sendnicks()"), (Strings{"sendnicks|"}));
}

TEST(Framing, MessagesFollowEachOther) {
    EXPECT_EQ(FramesOf("\251nick(a)\251sendnicks()"), (Strings{"nick|a", "sendnicks|"}));
}

TEST(Framing, WhatHasNoMarkerIsText) {
    EXPECT_EQ(FramesOf("hello"), (Strings{"text:hello"}));
    EXPECT_EQ(FramesOf("hello\251nick(a)there"), (Strings{"text:hello", "nick|a", "text:there"}));
    EXPECT_EQ(FramesOf("sys(a)"), (Strings{"text:sys(a)"}));
    EXPECT_EQ(FramesOf(""), Strings{});
}

TEST(Framing, AnIncompleteMessageIsKeptWhereverItIsCut) {
    const std::string bytes = "x\251play(Bob,X(a(b)\"))\251end(Bob,Ann)y";
    const Strings whole = FramesOf(bytes);
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        Framer framer;
        Strings found = FramesOf(framer, bytes.substr(0, cut));
        for (const auto& frame : FramesOf(framer, bytes.substr(cut)))
            found.push_back(frame);
        EXPECT_EQ(found, whole) << cut;
    }
}

TEST(Framing, BytesMayComeOneAtATime) {
    Framer framer;
    Strings found;
    for (const char c : std::string("\251nick(A(n)n)\251sendnicks()"))
        for (const auto& frame : FramesOf(framer, {&c, 1}))
            found.push_back(frame);
    EXPECT_EQ(found, (Strings{"nick|A(n)n", "sendnicks|"}));
    EXPECT_FALSE(framer.InMessage());
}

TEST(Framing, AMarkerInsideAMessageGivesItUp) {
    EXPECT_EQ(FramesOf("\251sys(a\251nick(b)"), (Strings{"nick|b"}));
    EXPECT_EQ(FramesOf("\251\251nick(b)"), (Strings{"nick|b"}));
}

TEST(Framing, TheLongestMessageIsTakenAndALongerOneLeftOut) {
    const std::string longest = "sys(" + std::string(kLongestMessage - 5, 'x') + ")";
    ASSERT_EQ(longest.size(), kLongestMessage);
    EXPECT_EQ(FramesOf("\251" + longest), (Strings{"sys|" + std::string(kLongestMessage - 5, 'x')}));
    EXPECT_EQ(FramesOf("\251sys(x" + longest.substr(4) + "\251nick(a)"), (Strings{"too long", "nick|a"}));
}

TEST(Framing, ATooLongMessageIsSaidOnceAndEndsWhereItCloses) {
    Framer framer(10);
    EXPECT_EQ(FramesOf(framer, "\251sys(0123456789"), (Strings{"too long"}));
    EXPECT_EQ(FramesOf(framer, "(0123456789)"), Strings{});
    EXPECT_EQ(FramesOf(framer, ")hello\251nick(a)"), (Strings{"text:hello", "nick|a"}));
}

TEST(Framing, AnEndlessMessageTakesNoRoomAndTheNextIsFound) {
    Framer framer;
    EXPECT_EQ(FramesOf(framer, "\251sys(" + std::string(40000, 'x')), (Strings{"too long"}));
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(FramesOf(framer, std::string(10000, 'x')), Strings{});
    EXPECT_EQ(FramesOf(framer, "\251nick(a)"), (Strings{"nick|a"}));
}

TEST(Framing, ATooLongMessageThatAMarkerEndsIsSaidOnceHoweverItsBytesCome) {
    const std::string bytes = "\251sys(0123456789\251nick(a)";
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        Framer framer(10);
        Strings found = FramesOf(framer, bytes.substr(0, cut));
        for (const auto& frame : FramesOf(framer, bytes.substr(cut)))
            found.push_back(frame);
        EXPECT_EQ(found, (Strings{"too long", "nick|a"})) << cut;
    }
}

TEST(Framing, AClosingParenthesisInANameClosesNothing) {
    EXPECT_EQ(FramesOf("\251a)b(c)"), (Strings{"a)b|c"}));
}

TEST(Framing, WhereNamesAreWordsAnythingElseIsText) {
    Framer framer(kLongestMessage, MessageNames::Letters);
    EXPECT_EQ(FramesOf(framer, "\251 2026 by me (all)"), (Strings{"text: 2026 by me (all)"}));
    EXPECT_EQ(FramesOf(framer, "\251nick(a)"), (Strings{"nick|a"}));
    EXPECT_EQ(FramesOf(framer, "\251so"), Strings{});
    EXPECT_EQ(FramesOf(framer, "\r\nit goes"), (Strings{"text:so\r\nit goes"}));
}

TEST(Framing, WhereAnyNameGoesAnIncompleteOneIsKept) {
    Framer framer;
    EXPECT_EQ(FramesOf(framer, "\251 no paren"), Strings{});
    EXPECT_TRUE(framer.InMessage());
}

} // namespace
} // namespace tarveth
