// Tests of what the operator may do, without sockets.
#include "server/Operator.h"
#include "tests/platform/TempFolder.h"
#include "tests/server/TestLobby.h"

#include "platform/file_error.h"
#include "server/bans_file.h"
#include "server/calendar.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

using namespace std::chrono_literals;

struct Operating : testing::Test {
    TestLobby t;
    TestConnection& ann = t.Join("Ann", "192.0.2.1");
    TestConnection& bob = t.Join("Bob", "192.0.2.2");
    TestConnection& ren = t.Join("Ren\xE9", "2001:db8::1");
    std::vector<std::string> log;
    TempFolder folder;
    std::string file = folder.File("bans");
    Operator op{t.lobby, file, [this](const std::string& act) { log.push_back(act); }};

    std::string Do(const Operator::Words& words) {
        const Operator::Answer answer = op.Do(words, t.lobby.Now());
        return (answer.done ? "" : "failed: ") + answer.text;
    }
};

TEST_F(Operating, ListsEverybodyWithAddress) {
    t.StartGame(ann, bob);
    t.Connect("192.0.2.9");
    Do({"mute", "Ren\xC3\xA9", "", ""});
    t.Pass(3723s);
    EXPECT_EQ(Do({"list"}), "NICKNAME  ADDRESS      HERE FOR  STATE\n"
                            "Ann       192.0.2.1    1:02:03   in a game with Bob\n"
                            "Bob       192.0.2.2    1:02:03   in a game with Ann\n"
                            "Ren\xC3\xA9      2001:db8::1  1:02:03   free, muted\n"
                            "-         192.0.2.9    1:02:03   is being put out\n");
}

TEST_F(Operating, KicksByNicknameAndTheyMayComeBack) {
    EXPECT_EQ(Do({"kick", "ann", "be kind"}), "Ann (192.0.2.1) has been put out\n");
    EXPECT_EQ(t.Heard(ann), "@alert(The operator has put you out of the lobby: be kind)");
    EXPECT_EQ(log, std::vector<std::string>{"Ann (192.0.2.1) is put out: be kind"});
    EXPECT_EQ(t.Join("Ann", "192.0.2.1").session.nick, "Ann");
}

TEST_F(Operating, KicksByAddressAndByRange) {
    t.Connect("192.0.2.1");
    EXPECT_EQ(Do({"kick", "192.0.2.1", ""}),
              "Ann (192.0.2.1) has been put out\n192.0.2.1 has been put out\n");
    EXPECT_EQ(Do({"kick", "192.0.2.0/24", ""}), "Bob (192.0.2.2) has been put out\n");
    EXPECT_TRUE(ren.session.IsUser());
    EXPECT_EQ(Do({"kick", "Nobody", ""}), "failed: Nobody who is here is meant by Nobody\n");
}

TEST_F(Operating, ABanPutsOutAndKeepsOut) {
    EXPECT_EQ(Do({"ban", "192.0.2.0/24", "", "spam"}),
              "192.0.2.0/24 is banned until it is lifted; put out: 2\n");
    EXPECT_EQ(t.Connect("192.0.2.77").refusal, "You are banned from this lobby: spam");
    EXPECT_EQ(t.Connect("192.0.3.1").refusal, std::nullopt);
    EXPECT_EQ(Do({"unban", "192.0.2.0/24"}), "192.0.2.0/24 is no longer banned\n");
    EXPECT_EQ(t.Connect("192.0.2.77").refusal, std::nullopt);
    EXPECT_EQ(Do({"unban", "192.0.2.0/24"}), "failed: 192.0.2.0/24 is not banned\n");
}

TEST_F(Operating, ABanOfAUserWhoIsHereHoldsForTheAddressToo) {
    EXPECT_EQ(Do({"ban", "REN\xC3\x89", "", ""}),
              "Ren\xC3\xA9 (2001:db8::/64) is banned until it is lifted; put out: 1\n");
    EXPECT_NE(t.Connect("2001:db8::2").refusal, std::nullopt);
    auto& again = t.Connect("203.0.113.1");
    t.ForgetAll();
    t.Say(again, "\251clientver(2.6.4)\251nick(Rene)");
    EXPECT_EQ(t.Heard(again), "@alert(You are banned from this lobby.)");
    EXPECT_EQ(Do({"unban", "Ren\xC3\xA9"}), "Ren\xC3\xA9 is no longer banned\n");
    EXPECT_EQ(t.Connect("2001:db8::2").refusal, std::nullopt);
}

TEST_F(Operating, ABanForSomeTimeSaysUntilWhen) {
    const std::string said = Do({"ban", "203.0.113.0/24", "2h", ""});
    EXPECT_EQ(said, "203.0.113.0/24 is banned until " + CalendarText(WallNow() + 2h) + "\n");
    EXPECT_EQ(Do({"ban", "203.0.113.0/24", "soon", ""}),
              "failed: soon is no time such as 90s, 10m, 2h, 7d or 4w\n");
}

TEST_F(Operating, AMutedUserIsHeardByNobodyAndTold) {
    EXPECT_EQ(Do({"mute", "Ann", "", "shouting"}), "Ann (192.0.2.1) is muted until it is lifted\n");
    t.Say(ann, "HELLO\n\251nick(Eve)");
    EXPECT_EQ(t.Heard(ann), "@sys(Your line was not passed on: you are muted until it is lifted: shouting)"
                            "nickname set to Eve$@changenick(Ann,Eve,0)");
    t.Say(ann, "still\n");
    EXPECT_EQ(t.Heard(bob), "@changenick(Ann,Eve,0)");
    t.StartGame(ann, bob);
    t.Say(ann, "\251play(Bob,M(1,1))");
    EXPECT_EQ(t.Heard(bob), "@play(Bob,M(1,1))");
    EXPECT_EQ(Do({"unmute", "192.0.2.1"}), "192.0.2.1 is no longer muted\n");
    t.Say(ann, "hello\n");
    EXPECT_EQ(t.Heard(bob), "Eve: hello$");
}

TEST_F(Operating, ABroadcastReachesAllAsANotice) {
    EXPECT_EQ(Do({"broadcast", "We close at ten :("}), "Told to 3 users\n");
    EXPECT_EQ(t.Heard(ann), "@sys(We close at ten :[)");
    EXPECT_EQ(t.Heard(bob), "@sys(We close at ten :[)");
    EXPECT_EQ(Do({"broadcast", "  "}), "failed: There is nothing to say\n");
}

TEST_F(Operating, TheBansFileOutlastsTheLobby) {
    Do({"ban", "192.0.2.0/24", "7d", "spam and more"});
    Do({"mute", "Ren\xC3\xA9", "", ""});
    EXPECT_EQ(Do({"bans"}).substr(0, 32), "192.0.2.0/24 is banned until 202");
    TestLobby next;
    const Operator again(next.lobby, file, {});
    EXPECT_EQ(next.lobby.Decisions().All(), t.lobby.Decisions().All());
    EXPECT_NE(next.Connect("192.0.2.200").refusal, std::nullopt);
}

TEST_F(Operating, TheBansFileIsReadAgain) {
    PutBytes(file, "# by hand\nban forever - \"Bob\" no reason at all\nmute 2999-01-01 2001:db8::/32 -\n");
    op.Reload(file, t.lobby.Now());
    EXPECT_EQ(t.Heard(bob), "@alert(You are banned from this lobby: no reason at all)");
    EXPECT_EQ(Do({"bans"}), "Bob is banned until it is lifted: no reason at all\n"
                            "2001:db8::/32 is muted until 2999-01-01 00:00 UTC\n");
}

TEST_F(Operating, WhatWasWrittenByHandIsKeptByTheNextBan) {
    PutBytes(file, "ban forever 203.0.113.7 -\n");
    Do({"ban", "192.0.2.200", "", ""});
    EXPECT_NE(t.Connect("203.0.113.7").refusal, std::nullopt);
    EXPECT_NE(GetBytes(file).find("ban  forever 203.0.113.7 -\nban  forever 192.0.2.200 -\n"),
              std::string::npos);
}

TEST_F(Operating, AFaultOfTheBansFileIsToldWithItsLineAndChangesNothing) {
    for (const char* line : {"kick forever 192.0.2.1 -", "ban soon 192.0.2.1 -", "ban forever 192.0.2.300 -",
                             "ban forever - -", "ban 2026-02-30 192.0.2.1 -", "ban"}) {
        PutBytes(file, std::string("\n") + line + "\n");
        try {
            op.Reload(file, t.lobby.Now());
            FAIL() << line;
        } catch (const platform::FileError& error) {
            EXPECT_EQ(error.Line(), 2U) << line;
        }
        EXPECT_EQ(Do({"ban", "192.0.2.1", "", ""}).substr(0, 28), "failed: Nothing has changed,");
        EXPECT_EQ(GetBytes(file), std::string("\n") + line + "\n");
    }
    EXPECT_TRUE(ann.session.IsUser());
}

TEST_F(Operating, ABanThatCanNotBeKeptHoldsAndIsReported) {
    std::filesystem::remove_all(folder.Path());
    EXPECT_TRUE(
        Do({"ban", "Ann", "", ""})
            .starts_with("failed: Ann (192.0.2.1) is banned until it is lifted; put out: 1, but only as "
                         "long as the lobby runs: "));
    EXPECT_NE(t.Connect("192.0.2.1").refusal, std::nullopt);
    std::filesystem::create_directory(folder.Path());
}

TEST_F(Operating, FiguresAreInTheTextFormatOfPrometheus) {
    t.StartGame(ann, bob);
    const std::string text = Do({"figures"});
    EXPECT_NE(text.find("# HELP tarveth_lobby_users Connections with a nickname now.\n"
                        "# TYPE tarveth_lobby_users gauge\ntarveth_lobby_users 3\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("# TYPE tarveth_lobby_arrivals_total counter\ntarveth_lobby_arrivals_total 3\n"),
              std::string::npos);
    EXPECT_NE(text.find("\ntarveth_lobby_games 1\n"), std::string::npos);
}

TEST_F(Operating, ARequestOfAnotherVersionIsRefused) {
    EXPECT_EQ(Do({"dance"}), "failed: The lobby knows no such request; is it of another version?\n");
    EXPECT_EQ(Do({"kick", "Ann"}), "failed: The lobby knows no such request; is it of another version?\n");
    EXPECT_TRUE(ann.session.IsUser());
}

TEST(Calendar, DurationsAndTimes) {
    EXPECT_EQ(ParseDuration("90s"), 90s);
    EXPECT_EQ(ParseDuration("4w"), 28 * 24h);
    for (const char* text : {"", "s", "5", "-1h", "1.5h", "1y", "99999999999w", "10 m"})
        EXPECT_EQ(ParseDuration(text), std::nullopt) << text;
    const auto time = ParseTimestamp("2026-11-22T10:20:30Z");
    ASSERT_TRUE(time);
    EXPECT_EQ(TimestampText(*time), "2026-11-22T10:20:30Z");
    EXPECT_EQ(CalendarText(*time), "2026-11-22 10:20 UTC");
    for (const char* text : {"2026-11-22T10:20:30", "2026-13-01", "2026-11-22T24:00:00Z", "x", ""})
        EXPECT_EQ(ParseTimestamp(text), std::nullopt) << text;
}

TEST(Ranges, HoldTheAddressesThatBeginWithTheirBits) {
    const auto holds = [](const char* range, const char* address) {
        return ParseRange(range)->Holds(*ParseAddress(address));
    };
    EXPECT_TRUE(holds("192.0.2.0/24", "192.0.2.255"));
    EXPECT_TRUE(holds("192.0.2.77/24", "192.0.2.1"));
    EXPECT_FALSE(holds("192.0.2.0/24", "192.0.3.0"));
    EXPECT_TRUE(holds("192.0.2.128/25", "192.0.2.129"));
    EXPECT_FALSE(holds("192.0.2.128/25", "192.0.2.127"));
    EXPECT_TRUE(holds("0.0.0.0/0", "203.0.113.1"));
    EXPECT_FALSE(holds("0.0.0.0/0", "2001:db8::1"));
    EXPECT_TRUE(holds("2001:db8::/32", "2001:db8:ffff::1"));
    EXPECT_TRUE(holds("2001:db8::1", "2001:db8::1"));
    EXPECT_FALSE(holds("2001:db8::1", "2001:db8::2"));
}

TEST(Ranges, AreWrittenAsTheyAreRead) {
    for (const char* text :
         {"192.0.2.0/24", "192.0.2.1", "0.0.0.0/0", "2001:db8::/64", "2001:db8::1", "::/0"})
        EXPECT_EQ(RangeText(*ParseRange(text)), text);
    for (const char* text :
         {"", "192.0.2.0/33", "192.0.2.0/", "192.0.2.0/-1", "2001:db8::/129", "Ann", "1.2.3"})
        EXPECT_EQ(ParseRange(text), std::nullopt) << text;
}

} // namespace
} // namespace tarveth
