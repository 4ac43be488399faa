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
    const std::string list = "@addnick(Ann,0)@addnick(Bob,0)";
    std::string thirtyLists;
    for (int i = 0; i < 30; ++i)
        thirtyLists += list;
    for (int i = 0; i < 2; ++i) {
        Repeat(40, "\251sendnicks()");
        EXPECT_EQ(t.Heard(ann), thirtyLists + kAsking);
        t.Pass(10s);
    }
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
    Repeat(50, "hi\n\251invite(Bob,Ann)");
    EXPECT_FALSE(ann.session.paused);
    t.ForgetAll();
    t.Say(ann, "\251play(Bob,M(1,2))");
    EXPECT_EQ(t.Heard(bob), "@play(Bob,M(1,2))");
}

TEST_F(Limited, FiveInvitationsInAMinuteRefusedOnesIncluded) {
    for (int i = 0; i < 5; ++i) {
        t.Say(ann, "\251invite(Bob,Ann)");
        t.Say(bob, "\251refuse(Ann, no)");
    }
    t.ForgetAll();
    t.Say(ann, "\251invite(Bob,Ann)");
    EXPECT_EQ(t.Heard(bob), "");
    EXPECT_EQ(t.Heard(ann), "@refuse(Ann, You invite too often. Please wait a minute.)");
    t.Pass(12s);
    t.Say(ann, "\251invite(Bob,Ann)");
    EXPECT_EQ(t.Heard(bob), "@invite(Bob,Ann)");
}

TEST_F(Limited, ThreeRenamesInTenSecondsAndTheClientIsToldItsNickname) {
    for (int i = 0; i < 4; ++i)
        t.Say(ann, "\251nick(Ann of " + std::to_string(i) + ")");
    EXPECT_EQ(t.Heard(bob),
              "@changenick(Ann,Ann of 0,0)@changenick(Ann of 0,Ann of 1,0)@changenick(Ann of 1,Ann of 2,0)");
    EXPECT_TRUE(t.Heard(ann).ends_with(
        "@sys(You change your nickname too often, so you are still Ann of 2.)nickname set to Ann of 2$"));
}

TEST_F(Limited, AClientThatSendsTooMuchIsReadMoreSlowlyAndThenPutOut) {
    const std::string chunk(65536, 'x');
    int pauses = 0;
    while (ann.session.stage != Stage::Dismissed && pauses < 100) {
        t.Say(ann, chunk);
        for (; ann.session.paused; t.Pass(100ms)) {
        }
        ++pauses;
    }
    EXPECT_GT(pauses, 35);
    EXPECT_LT(pauses, 60);
    EXPECT_NE(t.Heard(ann).find("@sys(You have sent too much that could not be passed on, so the lobby has "
                                "closed your connection.)"),
              std::string::npos);
    EXPECT_EQ(t.Heard(bob), "@removenick(Ann)");
    EXPECT_EQ(t.lobby.Counts().flooders, 1U);
}

TEST_F(Limited, AClientWhoseMessagesAreAllDroppedIsPutOut) {
    Repeat(300, "\251bogus()");
    EXPECT_EQ(ann.session.stage, Stage::Dismissed);
}

struct OneAddress : testing::Test {
    TestLobby t;
    TestConnection& bob = t.Join("Bob");

    // What Bob receives while clients of one address, one after the other, each say the text a few times.
    std::string HeardFromManyConnections(const std::string& text) {
        for (int i = 0; i < 10; ++i) {
            TestConnection& client = t.Connect(("2001:db8::" + std::to_string(i + 1)).c_str());
            t.Say(client, "\251clientver(2.6.4)\251nick(Ann)");
            for (int j = 0; j < 10; ++j)
                t.Say(client, text);
            t.Hang(client);
        }
        return t.Heard(bob);
    }
    static std::size_t Count(const std::string& heard, std::string_view what) {
        std::size_t count = 0;
        for (std::size_t at = heard.find(what); at != std::string::npos; at = heard.find(what, at + 1))
            ++count;
        return count;
    }
};

TEST_F(OneAddress, ReconnectingRenewsNoChatLines) {
    EXPECT_EQ(Count(HeardFromManyConnections("hi\n"), "Ann: hi"), 8U);
}

TEST_F(OneAddress, ReconnectingRenewsNoInvitations) {
    EXPECT_EQ(Count(HeardFromManyConnections("\251invite(Bob,Ann)\251end(Bob,Ann)"), "@invite"), 5U);
}

TEST_F(OneAddress, ReconnectingRenewsNoRenames) {
    EXPECT_EQ(Count(HeardFromManyConnections("\251nick(Ann of old)\251nick(Ann)"), "@changenick"), 3U);
}

TEST_F(OneAddress, ConnectsAtMostTenTimesInAMinute) {
    for (int i = 0; i < 10; ++i)
        t.Hang(t.Connect("192.0.2.1"));
    EXPECT_EQ(t.Connect("192.0.2.1").refusal, RefusalReason(Refusal::TooManyArrivals));
    EXPECT_EQ(t.Connect("192.0.2.2").refusal, std::nullopt);
    t.Pass(6s);
    EXPECT_EQ(t.Connect("192.0.2.1").refusal, std::nullopt);
}

TEST_F(OneAddress, LoopbackIsCountedUnlessItIsExempt) {
    Limits limits;
    limits.exemptLoopback = true;
    TestLobby exempting(limits);
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(exempting.Connect("127.0.0.1").refusal, std::nullopt);
        EXPECT_EQ(exempting.Connect("::1").refusal, std::nullopt);
    }
    for (int i = 0; i < 8; ++i)
        t.Connect("127.0.0.1");
    EXPECT_EQ(t.Connect("127.0.0.1").refusal, RefusalReason(Refusal::TooManyFromAddress));
}

TEST(NoLimits, ARateOfZeroSwitchesALimitOff) {
    Limits limits;
    limits.chatLines = limits.chatCharacters = limits.messages = limits.moves = limits.uselessBytes = {0, 0};
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
