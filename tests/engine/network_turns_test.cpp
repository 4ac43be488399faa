// A turn in a game across the network: what is sent, and whose return it is.
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarveth::test {
namespace {

void StartNetworkGame(TestGame& g, bool playingBlue) {
    g.net.NetConnected = g.net.InGame = true;
    g.net.PlayingBlue = playingBlue;
}

// The opponent's piece on 4D takes the one on 4E.
void ReceiveCapture(TestGame& g) {
    g.net.RemoteX = TextQueue("4|4|");
    g.net.RemoteY = TextQueue("4|5|");
    g.main.RunPasses();
}

TEST(NetworkMoves, SelectionAndDestinationAreSent) {
    TestGame g("turn B | BM 4G | RM 8A");
    StartNetworkGame(g, true);
    g.Move("4G", "4F");
    EXPECT_EQ(g.port.sent, (std::vector<std::string>{"M(4, 7)", "M(4, 6)"}));
}

TEST(NetworkMoves, ASquareIsSentBeforeItIsHandled) {
    class StatePort : public RecordingPort {
    public:
        explicit StatePort(const Game& game) : game_(game) {}
        void SendGameMessage(std::string_view) override { states.push_back(game_.GameState); }
        std::vector<int> states;

    private:
        const Game& game_;
    };
    Game game;
    NetGame net;
    Settings settings;
    settings.AnimateMoves = 0;
    StatePort port(game);
    modMAIN main(game, net, settings, Ports{port, port, port, port, port});
    SetPosition(game, "turn B | BM 4G | RM 8A");
    net.NetConnected = net.InGame = true;
    for (const char* square : {"4G", "4F"}) {
        main.DepositSquare(SquareOf(square));
        main.RunPasses();
    }
    EXPECT_EQ(port.states, (std::vector<int>{1, 2}));
}

TEST(NetworkMoves, RefusedClicksAreSentAsWell) {
    TestGame g("turn B | BM 4G | RM 8A");
    StartNetworkGame(g, true);
    g.Click("8A");
    g.Move("4G", "5F");
    EXPECT_EQ(g.port.sent, (std::vector<std::string>{"M(8, 1)", "M(4, 7)", "M(5, 6)"}));
}

TEST(NetworkMoves, NothingIsSentInALocalGame) {
    for (const bool connected : {false, true}) {
        TestGame g("turn B | BM 4G | RM 8A");
        g.net.NetConnected = connected;
        g.net.InGame = !connected;
        g.Move("4G", "4F");
        EXPECT_TRUE(g.port.sent.empty());
    }
}

TEST(NetworkReturns, AreSentWithSquarePieceAndSlot) {
    TestGame g("turn B | BM 4D | RO 4E | jail RP BP");
    StartNetworkGame(g, true);
    g.Move("4D", "4E");
    g.port.sent.clear();
    g.Click("2G");
    EXPECT_EQ(g.port.sent, std::vector<std::string>{"R(2,7,8,2)"});
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(NetworkReturns, ARefusedReturnSquareIsNotSent) {
    TestGame g("turn B | BM 4D | RO 4E | jail BP");
    StartNetworkGame(g, true);
    g.Move("4D", "4E");
    g.port.sent.clear();
    g.Click("4E");
    EXPECT_TRUE(g.port.sent.empty());
    EXPECT_EQ(g.game.GameState, kReturnPiece);
}

TEST(NetworkReturns, TheWaitingPlayerIsAskedNothingAndMayNotPlaceIt) {
    TestGame g("turn B | BM 4D | RM 4E | jail BP BO");
    StartNetworkGame(g, false);
    ReceiveCapture(g);
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    EXPECT_EQ(g.port.returnQuestions, 0);
    g.game.ClickX = g.game.ClickY = 1;
    g.main.RunPasses();
    EXPECT_EQ(g.port.message, "Waiting for placement of returned piece.");
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    EXPECT_EQ(g.game.ClickX, 0);
    EXPECT_EQ(g.On("1A"), 0);
    EXPECT_TRUE(g.port.sent.empty());
}

TEST(NetworkReturns, RedPlacesItsOwnInANetworkGame) {
    TestGame g("turn R | RM 4D | BO 4E | jail RP");
    StartNetworkGame(g, false);
    g.Move("4D", "4E");
    g.Click("1A");
    EXPECT_EQ(g.On("1A"), 21);
    EXPECT_EQ(g.port.sent.back(), "R(1,1,21,1)");
}

TEST(NetworkReturns, TheWaitingSideEndsTheTurnWhenNoneIsDue) {
    for (const char* position : {"turn B | BM 4D | RM 4E | jail BM", "turn B | BM 4D | BO 4E | jail BP"}) {
        TestGame g(position);
        StartNetworkGame(g, false);
        ReceiveCapture(g);
        EXPECT_EQ(g.game.GameState, kPickPiece) << position;
        EXPECT_EQ(g.game.Turn, Red) << position;
    }
}

class AwaitedReturn : public testing::Test {
protected:
    TestGame g{"turn B | BM 4D | RM 4E | RM 8H | jail BP BO"};

    void SetUp() override {
        StartNetworkGame(g, false);
        g.game.Return.ReturnKind = Officer; // left from an earlier return
        g.game.Return.ReturnSlot = 9;
        ReceiveCapture(g);
        g.port.returnChoice = Officer;
    }
};

TEST_F(AwaitedReturn, BecomesTheLocalPlayersWhenTheLinkEnds) {
    g.net.InGame = false;
    EXPECT_TRUE(g.main.HasWork());
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    EXPECT_EQ(g.port.returnQuestions, 1);
    g.Click("1A");
    EXPECT_EQ(g.On("1A"), 4);
    EXPECT_EQ(g.game.Turn, Red);
}

TEST_F(AwaitedReturn, BecomesTheLocalPlayersWhenThePlayersSwapSides) {
    g.net.PlayingBlue = true;
    g.main.RunPasses();
    EXPECT_EQ(g.port.returnQuestions, 1);
    g.Click("1A");
    EXPECT_EQ(g.On("1A"), 4);
    EXPECT_EQ(g.port.sent, std::vector<std::string>{"R(1,1,4,2)"});
}

TEST_F(AwaitedReturn, StaysTheOpponentsOtherwise) {
    g.main.RunPasses();
    EXPECT_FALSE(g.main.HasWork());
    EXPECT_EQ(g.port.returnQuestions, 0);
    EXPECT_EQ(g.game.GameState, kReturnPiece);
}

} // namespace
} // namespace tarveth::test
