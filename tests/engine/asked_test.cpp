// The sentence that says who is to do what.
#include "engine/asked.h"

#include "tests/TestGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

std::string Asked(const TestGame& g) {
    return WhatIsAsked(g.game, g.net);
}

void PlayOverTheNetwork(TestGame& g, bool blue) {
    g.net.NetConnected = g.net.InGame = true;
    g.net.PlayingBlue = blue;
}

} // namespace

TEST(Asked, SaysWhoIsToMove) {
    TestGame g;
    EXPECT_EQ(Asked(g), "Blue is to move.");
    g.Move("4E", "4D");
    EXPECT_EQ(Asked(g), "Red is to move.");
}

TEST(Asked, SaysWhichPieceIsToBePlaced) {
    TestGame g;
    g.Click("4E");
    EXPECT_EQ(Asked(g), "Choose a square for the Blue Pawn.");
}

TEST(Asked, SaysWhenThePickedPieceCannotMove) {
    TestGame g;
    g.Click("5H"); // a Master between others
    EXPECT_EQ(Asked(g), "Choose a square for the Blue Master.") << "it may take its own";
    g.Click("5H");
    g.Click("5G"); // an Officer among its own side's pieces
    EXPECT_EQ(Asked(g), "The Blue Officer cannot move. Click it again to put it down.");
}

TEST(Asked, SaysThatAPieceComesBack) {
    TestGame g("turn B|BM 4D|RO 4C|BP 1H|jail BP");
    g.Move("4D", "4C");
    EXPECT_EQ(Asked(g), "Put your Pawn on a free square.");
}

TEST(Asked, SaysWhoHasWon) {
    TestGame g("turn B|BM 4D|RM 4C|jail RM RM");
    g.Move("4D", "4C");
    EXPECT_EQ(Asked(g), "Blue wins.");
}

TEST(Asked, SaysWhenASideHasNoMove) {
    TestGame g("turn B|BP 1A|RM 8H");
    for (int i = 1; i <= kPieces; ++i)
        g.game.Piece(i).MaxMove = 0;
    EXPECT_EQ(Asked(g), "Blue has no move.");
}

TEST(Asked, SaysInANetworkGameWhoYouAre) {
    TestGame g;
    PlayOverTheNetwork(g, true);
    EXPECT_EQ(Asked(g), "You play Blue. Blue is to move.");
    PlayOverTheNetwork(g, false);
    EXPECT_EQ(Asked(g), "You play Red. Blue is to move.");
    g.game.CurPiece = 8;
    g.game.GameState = kPlacePiece;
    EXPECT_EQ(Asked(g), "You play Red. Blue is to move.") << "which piece is picked is not yours to place";
    g.game.GameState = kReturnPiece;
    EXPECT_EQ(Asked(g), "You play Red. Blue brings a piece back.");
    g.game.GameState = kGetBoard;
    EXPECT_EQ(Asked(g), "You play Red. The opponent's board is on its way.");
}

TEST(Asked, SaysAgainstTheComputerWhoYouAre) {
    TestGame g;
    g.net.ComputerPlaysRed = true;
    EXPECT_EQ(Asked(g), "You play Blue. Blue is to move.");
    g.Click("4E");
    EXPECT_EQ(Asked(g), "You play Blue. Choose a square for the Blue Pawn.");
    g.net.ComputerPlaysBlue = true;
    EXPECT_EQ(Asked(g), "Blue is to move.") << "the computer plays both";
}

TEST(Asked, SaysNothingWhereATurnOnlyPassesThrough) {
    TestGame g;
    for (const std::int16_t state : {kReset, kAllowReturn, kTurnOver, kBoardArrived}) {
        g.game.GameState = state;
        EXPECT_EQ(Asked(g), "") << state;
    }
}

} // namespace tarveth::test
