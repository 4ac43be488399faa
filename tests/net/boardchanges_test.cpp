// The messages of a board on their own: a change of one piece, the turn, and the word that play goes on.
#include "tests/net/ToolsGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

TEST(PlayCommand, WithoutABoardOnlySaysThatPlayMayCommence) {
    ToolsGame g;
    const Game before = g.game;
    g.Receive("C(play)");
    EXPECT_EQ(g.port.message, "Play may commence.");
    EXPECT_EQ(g.game, before);
}

TEST(PlayCommand, WithoutABoardUndoesNothing) {
    for (const std::int16_t state : {kPlacePiece, kReturnPiece, kAllowReturn, kTurnOver, kGameOver}) {
        ToolsGame g("turn B | BM 4D | RM 8H | jail BP RO");
        g.game.CurPiece = 1;
        g.game.GameState = state;
        g.Parse("C(play)");
        EXPECT_EQ(g.game.GameState, state);
    }
}

TEST(BoardChanges, TakeTheNumberThatAFieldBeginsWith) {
    for (const char* number : {"3", "3.0", "+3", "3abc", "03", "2.5e0 3", "3.5"}) {
        ToolsGame g("turn B | BM 4D | RM 8H");
        g.Receive("P(1,1,1," + std::string(number) + ",5,2,5)");
        const int column = std::string_view(number).starts_with("2.5") ? 2
                           : number == std::string_view("3.5")         ? 4
                                                                       : 3;
        EXPECT_EQ(g.game.Piece(1).X, column) << number;
    }
}

TEST(Boards, TheFirstOfALinkIsNoNewsAndLaterOnesAre) {
    ToolsGame sender;
    const std::string fresh = Join(sender.BoardSent());
    sender.Click("4E");
    sender.Click("4D");
    const std::string played = Join(sender.BoardSent());
    ToolsGame g;
    g.Receive(fresh);
    EXPECT_EQ(g.port.message, "Play may commence.");
    EXPECT_TRUE(g.port.notices.empty());
    g.Receive(fresh);
    g.Receive(played);
    EXPECT_EQ(g.port.notices, (Strings{"Bob has begun a new game.", "Bob has loaded a game."}));
    g.Receive("C(play)");
    EXPECT_EQ(g.port.message, "Play may commence.");
}

TEST(Boards, OfBothLayoutsBeginANewGame) {
    for (const std::int16_t layout : {kImperialBoard, kDraumeCrownBoard}) {
        ToolsGame sender;
        PlacePieces(sender.game, layout);
        ToolsGame g;
        g.BoardSent();
        g.Receive(Join(sender.BoardSent()));
        EXPECT_EQ(g.port.notices, Strings{"Bob has begun a new game."});
    }
}

TEST(BoardChanges, OutsideATransferAreMadeAtOnce) {
    ToolsGame g;
    g.Receive("P(1,1,1,1,5,2,5)");
    EXPECT_EQ(g.On("1E"), 1);
    EXPECT_EQ(g.game.Piece(1).PrevX, 2);
    g.Receive("S(13,2,2,4,3,2,1)");
    EXPECT_EQ(g.game.Piece(13).Side, Red);
    EXPECT_EQ(g.game.Piece(13).Kind, Officer);
    EXPECT_EQ(g.game.Piece(13).MaxMove, 4);
    EXPECT_EQ(g.game.Piece(13).MaxDiag, 3);
    EXPECT_EQ(g.game.Piece(13).MaxCtlMove, 2);
    EXPECT_EQ(g.game.Piece(13).MaxCtlDiag, 1);
    g.Receive("P(14,2,1,-3,-1,3,1)J(1,2,1,-3,-1,3,1,3,0,3,0)");
    EXPECT_EQ(g.game.JailCount(), 1);
    EXPECT_EQ(g.game.Jailed(1).Kind, Master);
    EXPECT_EQ(g.game.Jailed(1).X, -3);
    EXPECT_TRUE(g.port.notices.empty());
}

TEST(BoardChanges, ThatCannotBeAreIgnoredWithANotice) {
    for (const char* text : {"P(1,1,1,5,8,0,0)", "P(1,1,1,0,0,0,0)", "S(1,1,4,1,1,1,1)",
                             "J(1,1,1,-4,-8,4,8,3,0,3,0)", "J(26,1,1,-4,-8,4,8,3,0,3,0)"}) {
        ToolsGame g;
        const Game before = g.game;
        g.Receive(text);
        EXPECT_EQ(g.game, before) << text;
        ASSERT_EQ(g.port.notices.size(), 1U) << text;
        EXPECT_TRUE(g.port.notices[0].starts_with("The opponent's program sent a change of the board that "
                                                  "cannot be: "));
    }
}

TEST(BoardChanges, TheSelectedPieceCannotBeTakenAway) {
    ToolsGame g;
    g.Click("4E");
    g.Receive("P(12,1,3,-4,-5,4,5)");
    EXPECT_EQ(g.On("4E"), 12);
    EXPECT_EQ(g.port.notices.size(), 1U);
}

TEST(TurnMessage, HandsTheMoveToTheSide) {
    ToolsGame g;
    g.Receive("T(2)");
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.port.player, "Red");
}

TEST(TurnMessage, DoesNotReviveAGameThatIsOver) {
    ToolsGame g("turn B | BM 4D | jail RM RM RM");
    g.Settle();
    g.Receive("T(2)T(1)C(play)");
    EXPECT_EQ(g.game.GameState, kGameOver);
    EXPECT_EQ(g.port.victoriesAnnounced.size(), 1U) << "the lobby is not told again and again";
}

} // namespace
} // namespace tarveth::test
