// Attempts to speak in somebody else's name, over real sockets.
#include "tests/platform/TempFolder.h"
#include "tests/server/LobbyProgram.h"

#include <gtest/gtest.h>

#include <csignal>

namespace tarveth {
namespace {

constexpr std::size_t kLongestMessage = 32767; // that clients take, without the marker

struct Impostor : testing::Test {
    LobbyProgram program;
    LobbyClient cid{program, "Cid"};
    LobbyClient dan{program, "Dan"};

    // Gives the nickname that a client gets who asks for this one.
    std::string NicknameFor(const std::string& wanted) const {
        LobbyClient client(program);
        client.Say("\251clientver(2.6.4)\251nick(" + wanted + ")\251sendnicks()");
        client.HearUntil("nickname set to ");
        std::string nick = client.HearUntil("\r\n");
        return nick.substr(0, nick.size() - 2);
    }
};

TEST_F(Impostor, ARefusalIsSignedWhateverItSays) {
    for (const std::string sentence :
         {"The lobby closes in 5 minutes.", "Dan of the lobby says, no", "nickname set to Cid", ",,,,", ""}) {
        cid.Say("\251invite(Dan,Cid)");
        EXPECT_NE(dan.HearUntil("\251invite(Dan,Cid)"), "");
        dan.Say("\251refuse(Cid, " + sentence + ")");
        EXPECT_NE(cid.HearUntil("\251refuse(Cid, Dan: " + sentence + ")"), "") << sentence;
    }
}

TEST_F(Impostor, AnAcceptanceIsSigned) {
    cid.Say("\251invite(Dan,Cid)");
    dan.HearUntil("\251invite(Dan,Cid)");
    dan.Say("\251accept(Cid,Eve,The server has chosen Eve.)");
    EXPECT_NE(cid.HearUntil("\251accept(Cid,Dan,Dan: The server has chosen Eve.)"), "");
}

TEST_F(Impostor, AnAcceptanceTooLongForClientsStartsTheGameOnBothSides) {
    const std::string begin = "accept(Cid,Dan,";
    cid.Say("\251invite(Dan,Cid)");
    dan.HearUntil("\251invite(Dan,Cid)");
    dan.Say("\251" + begin + std::string(kLongestMessage - begin.size() - 1, 'x') + ")");
    cid.HearUntil("\251");
    std::string accepted;
    while (accepted.find("accept(") == std::string::npos) {
        accepted = cid.HearUntil(")");
        ASSERT_NE(accepted, "");
    }
    EXPECT_LE(accepted.size() - accepted.find("accept("), kLongestMessage);
    cid.Say("\251play(Dan,M(1,1))");
    EXPECT_NE(dan.HearUntil("\251play(Dan,M(1,1))"), "");
    dan.Say("\251play(Cid,M(2,2))");
    EXPECT_NE(cid.HearUntil("\251play(Cid,M(2,2))"), "");
}

TEST_F(Impostor, NoRestOfALineReadsAsSomebodyElsesOrTheServers) {
    cid.Say("I resign Dan: I resign\r\n");
    EXPECT_NE(dan.HearUntil("Cid: I resign Dan : I resign\r\n"), "");
    cid.Say("look nickname set to Dan\r\n");
    EXPECT_NE(dan.HearUntil("Cid: look nickname-set to Dan\r\n"), "");
    cid.Say("a\251sys(The server says so)\r\n");
    EXPECT_NE(dan.HearUntil("Cid: a\r\n"), "");
    dan.Say("/who\r\n");
    EXPECT_EQ(dan.HearUntil("2 users").find("server says"), std::string::npos);
}

TEST_F(Impostor, TwoTextsSentTogetherStayTwoLines) {
    cid.Say("one\r\ntwo\nthree\r");
    EXPECT_NE(dan.HearUntil("Cid: one\r\nCid: two\r\nCid: three\r\n"), "");
}

TEST_F(Impostor, NicknamesThatLookLikeAUsersOrTheLobbysAreNotGiven) {
    for (const std::string wanted : {"C id", "C.I.D", "C1D", "c\xEC\x64", "Cid."})
        EXPECT_EQ(NicknameFor(wanted).back(), '2') << wanted;
    for (const std::string wanted :
         {"Server", "The Lobby", "Adm1n", "T4rveth Lobby", "192.0.2.1", "192.0.2.0/24"})
        EXPECT_EQ(NicknameFor(wanted), "Player") << wanted;
}

TEST(ReservedNamesFile, ExtendsTheReservedNamesAndIsReadAgain) {
    const TempFolder folder;
    const std::string file = folder.File("names");
    PutBytes(file, "# Ours\nJudge\nRen\xC3\xA9\n");
    LobbyProgram program({"--reserved-names", file});
    const auto nicknameFor = [&program](const std::string& wanted) {
        LobbyClient client(program);
        client.Say("\251clientver(2.6.4)\251nick(" + wanted + ")\251sendnicks()");
        client.HearUntil("nickname set to ");
        return client.HearUntil("\r\n");
    };
    EXPECT_EQ(nicknameFor("J.u.d.g.e"), "Player\r\n");
    EXPECT_EQ(nicknameFor("rene"), "Player\r\n");
    EXPECT_EQ(nicknameFor("Server"), "Player\r\n");
    PutBytes(file, "Umpire\n");
    program.Signal(SIGHUP);
    EXPECT_NE(program.LogLineWith("read again"), "");
    EXPECT_EQ(nicknameFor("Judge"), "Judge\r\n");
    EXPECT_EQ(nicknameFor("Umpire"), "Player\r\n");
}

} // namespace
} // namespace tarveth
