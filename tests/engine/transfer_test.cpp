// Boards sent and received: what is ended before a transfer, and what the received board replaces.
#include "tests/TestGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

constexpr std::string_view kCapture = "turn B | BM 4D | RM 4E | RM 8H | jail BP BO";

TEST(SettleForTransfer, DeselectsASelectedPiece) {
    TestGame g("turn B | BM 4D");
    g.Click("4D");
    g.main.SettleForTransfer();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Turn, Blue);
    EXPECT_FALSE(g.port.marker);
}

TEST(SettleForTransfer, GivesUpAReturnAndEndsTheTurn) {
    TestGame g(kCapture);
    g.Move("4D", "4E");
    ASSERT_EQ(g.game.GameState, kReturnPiece);
    g.main.SettleForTransfer();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_EQ(g.game.JailCount(), 3);
}

TEST(SettleForTransfer, AsksNoQuestionForAReturnThatIsAboutToBeDue) {
    TestGame g(kCapture);
    g.ClickOnePass("4D");
    g.ClickOnePass("4E");
    ASSERT_EQ(g.game.GameState, kAllowReturn);
    g.main.SettleForTransfer();
    EXPECT_EQ(g.port.returnQuestions, 0);
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(SettleForTransfer, LeavesAGameAtRestOrOverAsItIs) {
    for (const std::int16_t state : {kPickPiece, kGameOver}) {
        TestGame g("turn B | BM 4D");
        g.game.GameState = state;
        const Game before = g.game;
        g.main.SettleForTransfer();
        EXPECT_EQ(g.game, before);
    }
}

TEST(SettleForTransfer, ForgetsTheSquaresThatWait) {
    TestGame g("turn B | BM 4D");
    g.net.RemoteX = g.net.RemoteY = TextQueue("4|5|");
    g.main.Pass();
    ASSERT_TRUE(g.net.RemoteMove);
    g.main.SettleForTransfer();
    EXPECT_FALSE(g.main.HasWork());
    EXPECT_FALSE(g.net.RemoteMove);
}

TEST(SetUpPosition, WritesTheLogOfTheGameThatItReplaces) {
    class LogPort : public RecordingPort {
    public:
        explicit LogPort(const Game& game) : game_(game) {}
        void BeginReceivedRecord() override { linesLogged = game_.lstHistory.size(); }
        std::size_t linesLogged = 0;

    private:
        const Game& game_;
    };
    Game game;
    NetGame net;
    const Settings settings;
    LogPort port(game);
    modMAIN main(game, net, settings, Ports{port, port, port, port, port});
    main.NewGame();
    game.lstHistory = {"one", "two"};
    main.AwaitBoard();
    main.SetUpPosition(TestGame("turn R | RM 4D").game, PositionSource::Opponent);
    EXPECT_EQ(port.linesLogged, 2U);
    EXPECT_TRUE(game.lstHistory.empty());
    EXPECT_EQ(game.GameState, kBoardArrived);
    EXPECT_EQ(port.player, "Red");
}

TEST(EndTransfer, GoesOnWithTheGameThatWasThere) {
    TestGame g("turn R | RM 4D");
    const Game before = g.game;
    g.main.AwaitBoard();
    g.main.Pass();
    g.main.EndTransfer();
    EXPECT_EQ(g.game, before);
    EXPECT_EQ(g.port.message, "");
}

TEST(EndTransfer, DoesNothingWhereNoBoardIsAwaited) {
    for (const std::int16_t state : {kPickPiece, kPlacePiece, kReturnPiece, kGameOver}) {
        TestGame g("turn B | BM 4D");
        g.game.GameState = state;
        g.main.EndTransfer();
        EXPECT_EQ(g.game.GameState, state);
    }
}

} // namespace
} // namespace tarveth::test
