// Dragging a piece with the left button, and putting a picked one down.
#include "tests/TestGame.h"
#include "tests/display/DisplayGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

struct Hand {
    DisplayGame& g;

    void Press(Square square) {
        g.mouse.MouseDown(MouseButton::Left, g.MiddleOf(square.column), g.MiddleOf(square.row));
    }
    void MoveTo(Square square) { g.mouse.Point(g.MiddleOf(square.column), g.MiddleOf(square.row), true); }
    void LetGo(Square square) {
        g.mouse.MouseUp(MouseButton::Left, g.MiddleOf(square.column), g.MiddleOf(square.row));
        g.main.RunPasses();
    }
};

} // namespace

TEST(Dragging, MovesAPieceAsTwoClicksDo) {
    DisplayGame g;
    Hand hand{g};
    hand.Press({4, 5});
    EXPECT_EQ(g.game.GameState, kPickPiece) << "pressing alone picks nothing";
    hand.MoveTo({4, 4});
    EXPECT_EQ(g.game.GameState, kPlacePiece) << "picked as soon as the pointer leaves the square";
    hand.LetGo({4, 4});
    EXPECT_TRUE(g.game.Piece(12).StandsOn({4, 4}));
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(Dragging, WorksWhenNoMovementIsTold) {
    DisplayGame g;
    Hand hand{g};
    hand.Press({4, 5});
    hand.LetGo({4, 4});
    EXPECT_TRUE(g.game.Piece(12).StandsOn({4, 4}));
}

TEST(Dragging, BackToItsSquareLeavesThePiecePicked) {
    DisplayGame g;
    Hand hand{g};
    hand.Press({4, 5});
    hand.LetGo({4, 5});
    EXPECT_EQ(g.game.GameState, kPlacePiece);
}

TEST(Dragging, ToASquareThatIsRefusedSaysSoAndLeavesThePiecePicked) {
    DisplayGame g;
    Hand hand{g};
    hand.Press({4, 5});
    hand.MoveTo({8, 5});
    hand.LetGo({8, 5});
    EXPECT_EQ(g.port.message, "Illegal move (too many squares).");
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    hand.Press({4, 5});
    hand.MoveTo({4, 4});
    hand.LetGo({4, 4});
    EXPECT_TRUE(g.game.Piece(12).StandsOn({4, 4})) << "dragged once more";
}

TEST(Dragging, ASquareWithoutAPieceOfOnesOwnIsAClickWhereTheButtonIsLetGo) {
    DisplayGame g;
    Hand hand{g};
    hand.Press({1, 5}); // nobody stands there
    hand.MoveTo({4, 5});
    EXPECT_EQ(g.game.GameState, kPickPiece);
    hand.LetGo({4, 5});
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    EXPECT_EQ(g.game.CurPiece, 12);
}

TEST(Dragging, OutOfTurnIsRefusedOnce) {
    DisplayGame g;
    g.net.NetConnected = g.net.InGame = true;
    g.net.PlayingBlue = false;
    Hand hand{g};
    hand.Press({4, 5});
    hand.MoveTo({4, 4});
    hand.LetGo({4, 4});
    EXPECT_EQ(g.port.message, "Not your turn.");
    EXPECT_EQ(g.port.beeps, 1);
}

TEST(Dragging, EndsWhereTheButtonWasLetGoUnseen) {
    DisplayGame g;
    Hand hand{g};
    hand.Press({4, 5});
    g.mouse.Point(g.MiddleOf(4), g.MiddleOf(4), false);
    EXPECT_EQ(g.game.GameState, kPickPiece);
}

TEST(PuttingDown, DeselectsThePickedPiece) {
    DisplayGame g;
    g.mouse.PutDown();
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    g.Click({4, 5});
    ASSERT_EQ(g.game.GameState, kPlacePiece);
    g.mouse.PutDown();
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Turn, Blue);
    EXPECT_TRUE(g.port.beeps == 0);
}

TEST(PuttingDown, LeavesThePieceThatTheOpponentHasPicked) {
    DisplayGame g;
    g.Click({4, 5});
    g.net.NetConnected = g.net.InGame = true;
    g.net.PlayingBlue = false;
    g.mouse.PutDown();
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    EXPECT_EQ(g.port.beeps, 0);
}

} // namespace tarveth::test
