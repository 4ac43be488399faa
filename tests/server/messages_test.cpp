// Tests of every row of the table of messages, in the stages that allow it and in the others.
#include "server/messages.h"

#include "tests/server/TestLobby.h"

#include <gtest/gtest.h>

#include <set>

namespace tarveth {
namespace {

constexpr auto kUnnamed = "@sys(Tell your version and choose a nickname first.)";

TEST(MessageTable, HoldsEveryMessageOfAClientOnce) {
    std::multiset<std::string_view> names;
    for (const MessageRow& row : MessageTable())
        names.insert(row.name);
    EXPECT_EQ(names, (std::multiset<std::string_view>{"accept", "clientver", "end", "invite", "nick", "play",
                                                      "refuse", "sendnicks"}));
}

TEST(MessageTable, AClientThatHasNotSentAVersionMaySendNothingElse) {
    for (const MessageRow& row : MessageTable()) {
        if (row.name == "clientver")
            continue;
        TestLobby t;
        auto& ann = t.Connect();
        t.ForgetAll();
        t.Say(ann, "\251" + std::string(row.name) + "(a,b,c)");
        EXPECT_EQ(t.Heard(ann), kUnnamed) << row.name;
        EXPECT_EQ(ann.session.stage, Stage::Greeted) << row.name;
    }
}

TEST(MessageTable, AClientWithoutANicknameMaySendNothingElse) {
    for (const MessageRow& row : MessageTable()) {
        if (row.name == "nick")
            continue;
        TestLobby t;
        auto& ann = t.Connect();
        t.Say(ann, "\251clientver(2.6.4)");
        t.ForgetAll();
        t.Say(ann, "\251" + std::string(row.name) + "(a,b,c)");
        EXPECT_EQ(t.Heard(ann), kUnnamed) << row.name;
        EXPECT_EQ(ann.session.stage, Stage::Versioned) << row.name;
    }
}

TEST(MessageTable, ASecondVersionOfAUserIsIgnored) {
    TestLobby t;
    auto& ann = t.Join("Ann");
    t.Say(ann, "\251clientver(0.0.0)");
    EXPECT_EQ(t.Heard(ann), "");
    EXPECT_TRUE(ann.session.IsUser());
}

TEST(MessageTable, TooFewFieldsAreIgnored) {
    for (const MessageRow& row : MessageTable()) {
        if (row.fields < 2)
            continue;
        TestLobby t;
        auto& ann = t.Join("Ann");
        auto& bob = t.Join("Bob");
        t.Say(bob, "\251invite(Ann,Bob)");
        t.ForgetAll();
        t.Say(ann,
              "\251" + std::string(row.name) + "(Bob" + std::string(row.fields == 3 ? ",Ann" : "") + ")");
        EXPECT_EQ(t.Heard(ann), "") << row.name;
        EXPECT_EQ(t.Heard(bob), "") << row.name;
    }
}

TEST(MessageTable, AnUnknownNameIsIgnored) {
    TestLobby t;
    auto& ann = t.Join("Ann");
    auto& bob = t.Join("Bob");
    for (const char* name : {"sys", "alert", "addnick", "Nick", "NICK", "plays", ""})
        t.Say(ann, "\251" + std::string(name) + "(Bob,Ann,0)");
    EXPECT_EQ(t.Heard(ann), "");
    EXPECT_EQ(t.Heard(bob), "");
}

TEST(MessageTable, ATooLongMessageIsReportedAndTheNextOneTaken) {
    TestLobby t;
    auto& ann = t.Join("Ann");
    t.Say(ann, "\251nick(" + std::string(40000, 'x') + ")\251nick(Bob)");
    EXPECT_EQ(t.Heard(ann), "@sys(A message of more than 32767 characters was ignored.)nickname set to "
                            "Bob$@changenick(Ann,Bob,0)");
}

TEST(MessageTable, TheLimitOfAMessageIsAnOption) {
    Limits limits;
    limits.longestMessage = 300;
    TestLobby t(limits);
    auto& ann = t.Join("Ann");
    t.Say(ann, "\251nick(" + std::string(300, 'x') + ")");
    EXPECT_EQ(t.Heard(ann), "@sys(A message of more than 300 characters was ignored.)");
}

} // namespace
} // namespace tarveth
