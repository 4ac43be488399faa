// Renames between an invitation and its answer, and in a game, over real sockets: nothing gets lost.
#include "tests/server/LobbyProgram.h"

#include <gtest/gtest.h>

#include <string>

namespace tarveth {
namespace {

struct Renaming : testing::Test {
    LobbyProgram program;
    LobbyClient cid{program, "Cid"};
    LobbyClient dan{program, "Dan"};

    void Rename(LobbyClient& client, const std::string& nick) {
        client.Say("\251nick(" + nick + ")");
        EXPECT_NE(client.HearUntil("nickname set to " + nick + "\r\n"), "");
    }
};

TEST_F(Renaming, AnAcceptanceReachesAnInviterWhoHasRenamed) {
    cid.Say("\251invite(Dan,Cid)");
    dan.HearUntil("\251invite(Dan,Cid)");
    Rename(cid, "Cee");
    dan.Say("\251accept(Cid,Dan,fine)\251play(Cid,M(1,1))");
    EXPECT_NE(cid.HearUntil("\251accept(Cee,Dan,Dan: fine)"), "");
    EXPECT_NE(cid.HearUntil("\251play(Cee,M(1,1))"), "");
}

TEST_F(Renaming, ARefusalReachesAnInviterWhoHasRenamed) {
    cid.Say("\251invite(Dan,Cid)");
    dan.HearUntil("\251invite(Dan,Cid)");
    Rename(cid, "Cee");
    Rename(dan, "Dee");
    dan.Say("\251refuse(Cid, no)");
    EXPECT_NE(cid.HearUntil("\251refuse(Cee, Dee: no)"), "");
}

TEST_F(Renaming, MovesAndTheEndGoThroughTwoRenamesInOrder) {
    StartGame(cid, "Cid", dan, "Dan");
    std::string expected;
    int number = 0;
    const auto move = [&] { return "M(" + std::to_string(number) + ",1)"; };
    const auto message = [&](const std::string& nick) { return "\251play(" + nick + "," + move() + ")"; };
    const auto play = [&](const std::string& old, const std::string& present) {
        for (int i = 0; i < 20; ++i, ++number) {
            dan.Say(message(old));
            expected += move();
            EXPECT_NE(cid.HearUntil(message(present)), "") << number;
        }
    };
    play("Cid", "Cid");
    Rename(cid, "Cee");
    play("Cid", "Cee");
    Rename(cid, "Cea");
    play("Cid", "Cea");
    play("Cee", "Cea");
    play("Cea", "Cea");
    dan.Say("\251end(Cid,Dan)");
    EXPECT_NE(cid.HearUntil("\251end(Cea,Dan)"), "");
    EXPECT_NE(dan.HearUntil("\251changenick(Dan,Dan,0)"), "");
}

TEST_F(Renaming, MovesSentInOneSegmentWithARenameArriveInOrder) {
    StartGame(cid, "Cid", dan, "Dan");
    std::string moves;
    for (int i = 0; i < 50; ++i)
        moves += "\251play(Dan,M(" + std::to_string(i) + ",1))" + (i == 25 ? "\251nick(Cee)" : "");
    cid.Say(moves);
    for (int i = 0; i < 50; ++i)
        EXPECT_NE(dan.HearUntil("\251play(Dan,M(" + std::to_string(i) + ",1))"), "") << i;
}

} // namespace
} // namespace tarveth
