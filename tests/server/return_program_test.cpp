// Tests of clients that were cut off and come back, over real sockets.
#include "tests/server/LobbyProgram.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

struct ComingBack : testing::Test {
    LobbyProgram program;
    LobbyClient ann{program, "Ann", 0, "127.0.0.2"};
    LobbyClient bob{program, "Bob", 0, "127.0.0.3"};
};

TEST_F(ComingBack, AClientWhoseNetworkHasGoneGetsItsNameAndItsPartnerIsTold) {
    StartGame(ann, "Ann", bob, "Bob");
    ann.Vanish();
    LobbyClient again(program, 0, "127.0.0.2");
    again.Say("\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
    EXPECT_NE(again.HearUntil("nickname set to Ann2\r\n"), "");
    EXPECT_NE(again.HearUntil("nickname set to Ann\r\n"), "");
    EXPECT_NE(program.LogLineWith("Ann (127.0.0.2) has left: its client is gone"), "");
    EXPECT_NE(bob.HearUntil("\251end(Bob,Ann)"), "");
    EXPECT_NE(bob.HearUntil("\251sys(Ann is back. Invite them to go on with the game on your board.)"), "");
    StartGame(bob, "Bob", again, "Ann");
    bob.Say("\251play(Ann,C(board))");
    EXPECT_NE(again.HearUntil("\251play(Ann,C(board))"), "");
}

TEST_F(ComingBack, AClientThatIsStillThereKeepsItsName) {
    LobbyClient second(program, 0, "127.0.0.2");
    second.Say("\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
    EXPECT_NE(second.HearUntil("nickname set to Ann2\r\n"), "");
    // The lobby has asked whether Ann is there. Nothing that could be waited for follows from her being so.
    EXPECT_NE(ann.HearUntil("\251update("), "");
    ann.Say("here\r\n");
    EXPECT_NE(second.HearUntil("Ann: here\r\n"), "");
}

TEST_F(ComingBack, TheNameOfAClientWhoseConnectionWasResetIsKeptForIt) {
    StartGame(ann, "Ann", bob, "Bob");
    ann.Abort();
    EXPECT_NE(bob.HearUntil("\251removenick(Ann)"), "");
    LobbyClient thief(program, 0, "127.0.0.4");
    thief.Say("\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
    EXPECT_NE(thief.HearUntil("nickname set to Ann2\r\n"), "");
    LobbyClient again(program, 0, "127.0.0.2");
    again.Say("\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
    EXPECT_NE(again.HearUntil("nickname set to Ann\r\n"), "");
    EXPECT_NE(bob.HearUntil("\251sys(Ann is back."), "");
}

TEST(KeptNames, AreGivenAwayAfterTheTimeThatAnOptionSets) {
    const LobbyProgram program({"--kept-names", "0"});
    LobbyClient bob(program, "Bob", 0, "127.0.0.3");
    LobbyClient(program, "Ann", 0, "127.0.0.2").Abort();
    EXPECT_NE(bob.HearUntil("\251removenick(Ann)"), "");
    LobbyClient other(program, 0, "127.0.0.4");
    other.Say("\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
    EXPECT_NE(other.HearUntil("nickname set to Ann\r\n"), "");
}

} // namespace
} // namespace tarveth
