// Who plays which side: the two colours, a swap, and the end of the link.
#include "tests/net/ToolsGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

TEST(Sides, AreShownInTheirColour) {
    ToolsGame g;
    g.tools.SetLocalRed();
    EXPECT_FALSE(g.net.PlayingBlue);
    EXPECT_EQ(g.port.localSide, Red);
    g.tools.SetLocalBlue();
    EXPECT_TRUE(g.net.PlayingBlue);
    EXPECT_EQ(g.port.localSide, Blue);
}

TEST(Swap, OfTheOpponentsGivesTheLocalPlayerTheOtherSide) {
    ToolsGame g;
    g.Receive("C(swap)");
    EXPECT_FALSE(g.net.PlayingBlue);
    EXPECT_EQ(g.port.localSide, Red);
    g.Click("4E");
    EXPECT_EQ(g.port.message, "Not your turn.");
}

TEST(Swap, OfTheOpponentsIsTold) {
    ToolsGame g;
    g.Receive("C(swap)");
    EXPECT_EQ(g.port.notices, Strings{"Bob has swapped sides; you play Red now."});
    g.tools.SwapSides();
    EXPECT_EQ(g.port.notices.size(), 1U);
}

TEST(Swap, TwiceRestoresTheFirstColours) {
    for (const bool playingBlue : {true, false}) {
        ToolsGame g;
        g.net.PlayingBlue = playingBlue;
        g.Receive("C(swap)C(swap)");
        EXPECT_EQ(g.net.PlayingBlue, playingBlue);
        EXPECT_EQ(g.port.localSide, playingBlue ? Blue : Red);
    }
}

TEST(Swap, LeavesTheBoardAsItIs) {
    ToolsGame g;
    g.Click("4E");
    const Game before = g.game;
    g.Receive("C(swap)");
    EXPECT_EQ(g.game, before);
    g.Receive("M(4, 4)");
    EXPECT_EQ(g.On("4D"), 12) << "the opponent places the piece that was selected here";
}

TEST(Swap, HandsAReturnThatIsDueToTheOther) {
    const std::string_view capture = "turn B | BM 4D | RM 4E | RM 8H | jail BP BO";
    ToolsGame mine(capture); // Blue
    mine.port.returnChoice = Officer;
    mine.Move("4D", "4E");
    ToolsGame theirs(capture);
    theirs.tools.SetLocalRed();
    theirs.Receive("M(4, 4)M(4, 5)C(swap)");
    EXPECT_EQ(theirs.port.returnQuestions, 1) << "theirs to choose now, and not what the other had chosen";
    theirs.Click("1A");
    EXPECT_EQ(theirs.port.sent, Strings{"R(1,1,8,1)"});
    mine.Receive("C(swap)" + theirs.port.sent.back());
    EXPECT_EQ(mine.game.PieceTable, theirs.game.PieceTable);
    EXPECT_EQ(mine.game.JailTable, theirs.game.JailTable);
    EXPECT_EQ(mine.game.lstHistory, theirs.game.lstHistory);
    EXPECT_EQ(mine.game.Turn, Red);
}

TEST(LinkEnd, CountsTheLocalPlayerAsBlueAgain) {
    ToolsGame g;
    g.tools.SetLocalRed();
    g.tools.EndLink();
    EXPECT_TRUE(g.net.PlayingBlue);
    EXPECT_EQ(g.port.localSide, NoSide);
}

TEST(LinkEnd, ForgetsWhatTheOpponentHasSent) {
    ToolsGame g;
    g.Parse("M(4,5)M(4,4)R(1,1,1,1)");
    g.main.Pass(); // takes the first one
    g.tools.EndLink();
    g.net.InGame = false;
    EXPECT_FALSE(g.main.HasWork());
    g.Settle();
    EXPECT_EQ(g.game, ToolsGame().game);
    EXPECT_FALSE(g.net.RemoteMove);
}

TEST(LinkEnd, KeepsASquareOfTheLocalPlayers) {
    ToolsGame g;
    g.main.DepositSquare(SquareOf("4E"));
    g.tools.EndLink();
    g.net.InGame = false;
    g.Settle();
    EXPECT_EQ(g.game.GameState, kPlacePiece);
}

TEST(LinkEnd, WhileABoardArrivesTheGameBeforeGoesOn) {
    ToolsGame g;
    g.Move("4E", "4D");
    const Game before = g.game;
    g.Receive("C(board)P(1,1,1,1,5,0,0)T(1)");
    ASSERT_EQ(g.game.GameState, kGetBoard);
    g.tools.EndLink();
    EXPECT_EQ(g.game, before);
    EXPECT_EQ(g.port.prompt, "Pick piece");
    EXPECT_EQ(g.port.message, "");
    g.Receive("C(play)");
    EXPECT_EQ(g.game.PieceTable, before.PieceTable) << "the rest of it comes too late";
}

TEST(LinkEnd, OnceABoardHasArrivedItIsPlayedOn) {
    ToolsGame sender;
    sender.Move("4E", "4D");
    ToolsGame g;
    g.Parse(Join(sender.BoardSent()));
    ASSERT_EQ(g.game.GameState, kBoardArrived);
    const int redraws = g.port.redraws;
    g.tools.EndLink();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_GT(g.port.redraws, redraws);
    EXPECT_EQ(g.game.PieceTable, sender.game.PieceTable);
}

TEST(LinkEnd, MakesTheOpponentsReturnTheLocalPlayers) {
    ToolsGame g("turn R | RM 4D | BM 4E | BM 8H | jail RP RO");
    g.Receive("M(4, 4)M(4, 5)");
    ASSERT_EQ(g.game.GameState, kReturnPiece);
    g.port.returnChoice = Officer;
    g.tools.EndLink();
    g.net.InGame = false;
    g.Settle();
    EXPECT_EQ(g.port.returnQuestions, 1);
    g.Click("1A");
    EXPECT_EQ(g.On("1A"), 17);
    EXPECT_EQ(g.game.Turn, Blue);
}

TEST(LinkEnd, LeavesAGameThatIsOverAsItIs) {
    ToolsGame g("turn B | BM 4D | jail RM RM RM");
    g.Settle();
    ASSERT_EQ(g.game.GameState, kGameOver);
    g.Receive("C(board)");
    g.tools.EndLink();
    g.net.InGame = false;
    g.Settle();
    EXPECT_EQ(g.game.GameState, kGameOver);
    EXPECT_EQ(g.port.message, "Blue has captured all Red's Masters, and wins!");
    EXPECT_EQ(g.port.gameEndSounds.size(), 1U) << "it was won once";
}

} // namespace
} // namespace tarveth::test
