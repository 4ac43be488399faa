// The real program on a hostile server: its windows stay responsive, its memory bounded, and the game on the
// board can be played on.

#include "tests/window/ClientDesk.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <random>

#include <unistd.h>

namespace tarveth::harness {
namespace {

constexpr double kMebibyte = 1 << 20;

std::string Repeat(std::string_view text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

class HostileServer : public testing::Test {
protected:
    void SetUp() override {
        client.ChooseServer(server->Address());
        server->Accept();
        server->Say("\251update(2.6.4)\251addnick(Ada,0)");
        ASSERT_TRUE(client.UsersBecome({"Ada"}));
        before = Mebibytes();
    }

    // Gives the program's resident memory.
    double Mebibytes() const {
        std::ifstream file("/proc/" + std::to_string(desk.program.Pid()) + "/statm");
        double total = 0;
        double resident = 0;
        file >> total >> resident;
        return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / kMebibyte;
    }

    // Clicks on a square and waits until that shows on the board. Judged by the picture alone: a screen
    // reader would have to hear the whole list of users first.
    void ExpectClickShows(std::string_view square) {
        desk.window.Activate();
        ASSERT_TRUE(WaitUntil([&] { return desk.screen.Active() == desk.window.Id(); }));
        const Picture idle = desk.BoardNow();
        desk.ClickSquare(square);
        EXPECT_TRUE(WaitUntil([&] { return desk.BoardNow() != idle; }));
    }

    // A piece is picked, and put down again.
    void ExpectAlive(double mebibytesMore) {
        ExpectClickShows("4E");
        ExpectClickShows("4E");
        EXPECT_TRUE(desk.program.Alive());
        EXPECT_LT(Mebibytes(), before + mebibytesMore);
    }

    void StartGame() {
        server->Say("\251invite(Ada,Eve)");
        client.Join("Eve");
        EXPECT_TRUE(client.TitleBecomes("Internet Tarveth (Ada vs. Eve)"));
    }

    std::unique_ptr<PlainServer> server = std::make_unique<PlainServer>();
    GameFolder folder{"[Options]\r\nAnimateMoves=0\r\nNickname=Ada\r\n"};
    GameDesk desk{folder};
    ClientDesk client{desk};
    double before = 0;
};

TEST_F(HostileServer, SendsRandomBytes) {
    std::mt19937 random(9);
    std::string bytes;
    for (int i = 0; i < 2'000'000; ++i) {
        bytes += static_cast<char>(random());
    }
    server->Say(bytes);
    ExpectAlive(60);
}

TEST_F(HostileServer, SendsALineThatNeverEnds) {
    server->Say(Repeat("for ever ", 1'000'000));
    ExpectAlive(60);
}

TEST_F(HostileServer, SendsAMessageThatNeverEnds) {
    server->Say("\251sys(" + Repeat("((((((((((", 1'000'000));
    EXPECT_TRUE(client.Hears("A message of more than 32767 characters was ignored."));
    ExpectAlive(60);
}

TEST_F(HostileServer, NamesAHundredThousandUsers) {
    std::string names;
    for (int i = 0; i < 100'000; ++i) {
        names += "\251addnick(user" + std::to_string(i) + ",0)";
    }
    server->Say(names);
    ExpectAlive(100);
}

TEST_F(HostileServer, FloodsWithInvitations) {
    server->Say(Repeat("\251invite(Ada,Eve)", 1000));
    client.Join("Eve");
    EXPECT_TRUE(client.Hears("You have accepted the invitation from Eve"));
    server->Say("\251end(Ada,Eve)");
    EXPECT_TRUE(client.Hears("Eve has broken the connection with you."));
    ExpectAlive(60);
}

TEST_F(HostileServer, FloodsWithMoves) {
    StartGame();
    server->Say(Repeat("\251play(Ada,M(4, 5))", 20'000) + "\251end(Ada,Eve)");
    EXPECT_TRUE(client.TitleBecomes("Internet Tarveth (Ada vs. <nobody>)"));
    ExpectAlive(60);
}

// To change a label takes the toolkit long, and each of these asked for two.
TEST_F(HostileServer, FloodsWithTurns) {
    StartGame();
    const auto start = desk.program.Usage().cpuTime;
    server->Say(Repeat("\251play(Ada,T(2))\251play(Ada,T(1))", 47'500) + "\251end(Ada,Eve)");
    EXPECT_TRUE(client.TitleBecomes("Internet Tarveth (Ada vs. <nobody>)"));
    EXPECT_LT(desk.program.Usage().cpuTime - start, std::chrono::seconds(2));
    ExpectAlive(60);
}

TEST_F(HostileServer, GoesAwayInTheMiddleOfABoard) {
    StartGame();
    server->Say("\251play(Ada,C(board))\251play(Ada,P(1,1,1,7");
    EXPECT_TRUE(desk.PromptBecomes("Get Board"));
    server.reset();
    EXPECT_TRUE(desk.TextBecomes("lblMessage",
                                 "The connection to the server is closed; the game goes on at this screen."));
    EXPECT_FALSE(client.window.Visible());
    ExpectAlive(60);
}

} // namespace
} // namespace tarveth::harness
