// Tests of what one client may do in the lobby.
#include "tests/server/TestLobby.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarveth {
namespace {

using namespace std::chrono_literals;

constexpr auto kTalking = "@sys(You are talking too much; some of your lines were not passed on.)";
constexpr auto kAsking = "@sys(You are asking too much at once; some of it is ignored.)";

std::size_t Lines(const std::string& heard) {
    return static_cast<std::size_t>(std::ranges::count(heard, '$'));
}

struct Limited : testing::Test {
    TestLobby t;
    TestConnection& ann = t.Join("Ann");
    TestConnection& bob = t.Join("Bob");

    void Repeat(int times, const std::string& text) {
        for (int i = 0; i < times; ++i)
            t.Say(ann, text);
    }
};

TEST_F(Limited, EightChatLinesAtOnceAndTheSpeakerIsToldOnce) {
    Repeat(20, "hi\n");
    EXPECT_EQ(Lines(t.Heard(bob)), 8U);
    const std::string heard = t.Heard(ann);
    EXPECT_EQ(heard.substr(heard.find('@')), kTalking);
}

TEST_F(Limited, FiveChatLinesInTenSecondsAfterThat) {
    Repeat(20, "hi\n");
    t.ForgetAll();
    t.Pass(10s);
    Repeat(20, "hi\n");
    EXPECT_EQ(Lines(t.Heard(bob)), 5U);
    EXPECT_NE(t.Heard(ann).find(kTalking), std::string::npos);
}

TEST_F(Limited, FifteenHundredChatCharactersInTenSeconds) {
    t.Say(ann, std::string(1000, 'x') + "\n");
    t.Say(ann, std::string(501, 'y') + "\n");
    t.Say(ann, std::string(500, 'z') + "\n");
    EXPECT_EQ(t.Heard(bob), "Ann: " + std::string(1000, 'x') + "$Ann: " + std::string(500, 'z') + "$");
    t.ForgetAll();
    t.Pass(10s);
    t.Say(ann, std::string(1500, 'x') + "\n");
    EXPECT_EQ(Lines(t.Heard(bob)), 1U);
}

TEST_F(Limited, AChatLineOfAMegabyteTakesNoRoom) {
    for (int i = 0; i < 100; ++i)
        t.Say(ann, std::string(10000, 'x'));
    EXPECT_LE(ann.session.line.size(), 40000U);
    t.Say(ann, "\n");
    EXPECT_EQ(t.Heard(bob), "");
}

TEST_F(Limited, ThirtyMessagesInTenSeconds) {
    t.Pass(10s);
    Repeat(40, "\251invite(Bob,Ann)");
    std::string invitations;
    for (int i = 0; i < 30; ++i)
        invitations += "@invite(Bob,Ann)";
    EXPECT_EQ(t.Heard(bob), invitations);
    EXPECT_EQ(t.Heard(ann), kAsking);
    t.Pass(10s);
    Repeat(40, "\251invite(Bob,Ann)");
    EXPECT_EQ(t.Heard(bob), invitations);
    EXPECT_EQ(t.Heard(ann), kAsking);
}

TEST_F(Limited, UnknownMessagesCountToo) {
    t.Pass(10s);
    Repeat(40, "\251bogus()");
    EXPECT_EQ(t.Heard(ann), kAsking);
}

TEST_F(Limited, TwoHundredMovesASecondAreNeverPutOff) {
    t.StartGame(ann, bob);
    for (int second = 0; second < 20; ++second) {
        Repeat(200, "\251play(Bob,M(1,2))");
        t.Pass(1s);
    }
    EXPECT_EQ(t.lobby.Counts().pauses, 0U);
    EXPECT_EQ(t.lobby.Counts().moves, 4000U);
}

TEST_F(Limited, MoreMovesAreReadLaterButNoneIsLost) {
    t.StartGame(ann, bob);
    Repeat(600, "\251play(Bob,M(1,2))");
    EXPECT_EQ(t.lobby.Counts().moves, 600U);
    EXPECT_TRUE(ann.session.paused);
    t.Pass(999ms);
    EXPECT_TRUE(ann.session.paused);
    t.Pass(1ms);
    EXPECT_FALSE(ann.session.paused);
    EXPECT_EQ(t.lobby.TakeDue().back(), &ann.session);
}

TEST_F(Limited, ChatAndMessagesDoNotTakeFromTheMoves) {
    t.StartGame(ann, bob);
    Repeat(100, "hi\n\251invite(Bob,Ann)");
    EXPECT_FALSE(ann.session.paused);
    t.ForgetAll();
    t.Say(ann, "\251play(Bob,M(1,2))");
    EXPECT_EQ(t.Heard(bob), "@play(Bob,M(1,2))");
}

TEST(NoLimits, ARateOfZeroSwitchesALimitOff) {
    Limits limits;
    limits.chatLines = limits.chatCharacters = limits.messages = limits.moves = {0, 0};
    TestLobby t(limits);
    auto& ann = t.Join("Ann");
    auto& bob = t.Join("Bob");
    t.StartGame(ann, bob);
    for (int i = 0; i < 1000; ++i)
        t.Say(ann, "hi\n\251play(Bob,M(1,2))\251sendnicks()");
    EXPECT_EQ(Lines(t.Heard(bob)), 1000U);
    EXPECT_EQ(t.lobby.Counts().dropped + t.lobby.Counts().pauses, 0U);
}

} // namespace
} // namespace tarveth
