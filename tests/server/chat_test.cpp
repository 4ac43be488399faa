// Tests of general chat, its commands, and ignored users.
#include "tests/server/TestLobby.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

using namespace std::chrono_literals;

struct Chat : testing::Test {
    TestLobby t;
    TestConnection& ann = t.Join("Ann");
    TestConnection& bob = t.Join("Bob");
};

using Ignoring = Chat;
using Commands = Chat;

TEST_F(Chat, ALineReachesAllWithItsSpeakersNickname) {
    t.Say(ann, "hello (all\r\n");
    EXPECT_EQ(t.Heard(bob), "Ann: hello (all$");
    EXPECT_EQ(t.Heard(ann), "Ann: hello (all$");
}

TEST_F(Chat, ALineWithoutAnEndIsWholeWhenNothingFollows) {
    t.Say(ann, "hel");
    t.Pass(99ms);
    t.Say(ann, "lo");
    t.Pass(99ms);
    EXPECT_EQ(t.Heard(bob), "");
    t.Pass(1ms);
    EXPECT_EQ(t.Heard(bob), "Ann: hello$");
    EXPECT_EQ(t.lobby.NextTimer(), std::nullopt);
}

TEST_F(Chat, AMessageEndsALine) {
    t.Say(ann, "hello\251invite(Bob,Ann)there\n");
    EXPECT_EQ(t.Heard(bob), "Ann: hello$@invite(Bob,Ann)Ann: there$");
}

TEST_F(Chat, EveryLineIsSignedAndEmptyOnesAreDropped) {
    t.Say(ann, "one\r\n\r\n  \r\ntwo\rthree\n");
    EXPECT_EQ(t.Heard(bob), "Ann: one$Ann: two$Ann: three$");
}

TEST_F(Chat, ControlCharactersAndMarkersAreNotPassedOn) {
    t.Say(ann, "a\tb\x1B[31mc\251\x7F d\n");
    EXPECT_EQ(t.Heard(bob), "Ann: a b[31mc d$");
}

TEST_F(Chat, NobodySpeaksInTheServersName) {
    t.Say(ann, "\251sys(beware)\251alert(fire)hi\n");
    EXPECT_EQ(t.Heard(bob), "Ann: hi$");
}

TEST_F(Chat, AClientWithoutANicknameIsNotHeard) {
    auto& nobody = t.Connect();
    t.Say(nobody, "hello\n");
    t.Say(nobody, "\251clientver(2.6.4)hello\n");
    EXPECT_EQ(t.Heard(bob), "");
}

TEST_F(Chat, AUserWhoHasNotAskedForTheListGetsNoChat) {
    auto& early = t.Connect();
    t.Say(early, "\251clientver(2.6.4)\251nick(Early)");
    t.ForgetAll();
    t.Say(ann, "hello\n");
    EXPECT_EQ(t.Heard(early), "");
}

TEST_F(Ignoring, ChatAndInvitationsOfAnIgnoredUserAreNotDelivered) {
    auto& cid = t.Join("Cid");
    t.ForgetAll();
    t.Say(bob, "/ignore ann\n");
    EXPECT_EQ(t.Heard(bob), "@sys(You ignore ann now.)");
    t.Say(cid, "first\n");
    t.Say(ann, "hello\n\251invite(Bob,Ann)");
    t.Say(cid, "last\n");
    EXPECT_EQ(t.Heard(bob), "Cid: first$Cid: last$");
    EXPECT_EQ(t.Heard(ann),
              "Cid: first$Ann: hello$@refuse(Ann, Bob has turned down your invitation.)Cid: last$");
    EXPECT_EQ(t.Heard(cid), "Cid: first$Ann: hello$Cid: last$");
}

TEST_F(Ignoring, AUserWhoIsNoLongerIgnoredIsHeard) {
    t.Say(bob, "/ignore Ann\n");
    t.Say(bob, "/unignore ANN\n");
    t.ForgetAll();
    t.Say(ann, "hello\n");
    EXPECT_EQ(t.Heard(bob), "Ann: hello$");
    t.Say(bob, "/unignore Ann\n");
    EXPECT_EQ(t.Heard(bob), "@sys(You don't ignore Ann.)");
}

TEST_F(Ignoring, AnIgnoredUserWhoRenamesStaysIgnored) {
    t.Say(bob, "/ignore Ann\n");
    t.Say(ann, "\251nick(Anna)");
    t.ForgetAll();
    t.Say(ann, "hello\n");
    EXPECT_EQ(t.Heard(bob), "");
}

TEST_F(Ignoring, AnIgnoredUserWhoReconnectsStaysIgnored) {
    t.Say(bob, "/ignore Ann\n");
    t.Hang(ann);
    auto& again = t.Join("Ann", AddressText(ann.session.address).c_str());
    t.Say(again, "hello\n");
    EXPECT_EQ(t.Heard(bob), "");
}

TEST_F(Ignoring, AUserWhoIgnoresOthersMayLeave) {
    t.Say(bob, "/ignore Ann\n");
    t.Hang(bob);
    t.Say(ann, "hello\n");
    EXPECT_EQ(t.Heard(ann), "@removenick(Bob)Ann: hello$");
}

TEST_F(Ignoring, OnlyAnotherUserWhoIsPresentCanBeIgnored) {
    t.Say(bob, "/ignore\n/ignore BOB\n/ignore D(n\n");
    EXPECT_EQ(t.Heard(bob),
              "@sys(Whom? Say /ignore NAME.)@sys(You can't ignore yourself.)@sys(D[n is not here.)");
}

TEST_F(Commands, WhoListsTheUsers) {
    t.Say(ann, "/WHO\n");
    EXPECT_EQ(t.Heard(ann), "@sys(2 users: Ann, Bob)");
    t.StartGame(ann, bob);
    t.Say(ann, "/who\n");
    EXPECT_EQ(t.Heard(ann), "@sys(2 users: Ann [in a game], Bob [in a game])");
    EXPECT_EQ(t.Heard(bob), "");
}

TEST_F(Commands, WhoListsAtMostSixtyUsers) {
    for (int i = 0; i < 70; ++i)
        t.Join("X" + std::to_string(i));
    t.Say(ann, "/who\n");
    const std::string heard = t.Heard(ann);
    EXPECT_NE(heard.find("72 users: Ann, Bob, X0"), std::string::npos);
    EXPECT_NE(heard.find(" and 12 more)"), std::string::npos);
}

TEST_F(Commands, HelpNamesAllCommands) {
    t.Say(ann, "/help\n");
    const std::string heard = t.Heard(ann);
    for (const char* command : {"/who", "/help", "/ignore", "/unignore"})
        EXPECT_NE(heard.find(command), std::string::npos);
    EXPECT_EQ(t.Heard(bob), "");
}

TEST_F(Commands, AnUnknownCommandIsReportedAndNotPassedOn) {
    t.Say(ann, "/quit (now\n");
    EXPECT_EQ(t.Heard(ann), "@sys(There is no command /quit. Say /help for those that there are.)");
    EXPECT_EQ(t.Heard(bob), "");
}

} // namespace
} // namespace tarveth
