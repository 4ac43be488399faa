// From pointer positions to squares, and which squares are deposited.
#include "engine/boardinput.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

constexpr Square kNone{};

TEST(SquareAt, CountsFromTheTopLeft) {
    EXPECT_EQ(SquareAt(0, 0, 512, 512), (Square{1, 1}));
    EXPECT_EQ(SquareAt(63, 64, 512, 512), (Square{1, 2}));
    EXPECT_EQ(SquareAt(64, 63, 512, 512), (Square{2, 1}));
    EXPECT_EQ(SquareAt(511, 511, 512, 512), (Square{8, 8}));
    EXPECT_EQ(SquareAt(200, 300, 512, 512), (Square{4, 5}));
}

TEST(SquareAt, HasItsOwnWidthAndHeight) {
    EXPECT_EQ(SquareAt(100, 100, 256, 800), (Square{4, 2}));
}

TEST(SquareAt, OutsideTheSquaresThereIsNone) {
    EXPECT_EQ(SquareAt(512, 10, 512, 512), kNone);
    EXPECT_EQ(SquareAt(10, 512, 512, 512), kNone);
    EXPECT_EQ(SquareAt(-1, 10, 512, 512), kNone);
    EXPECT_EQ(SquareAt(10, -1, 512, 512), kNone);
    EXPECT_EQ(SquareAt(-64, -64, 512, 512), kNone);
    EXPECT_EQ(SquareAt(5'000, 10, 512, 512), kNone);
}

TEST(SquareAt, TheStripLeftByRoundingTheSquareSizeIsNone) {
    // 515 / 8 rounds to 64, so columns end at 512
    EXPECT_EQ(SquareAt(511, 0, 515, 515), (Square{8, 1}));
    EXPECT_EQ(SquareAt(513, 0, 515, 515), kNone);
    // 517 / 8 rounds to 65
    EXPECT_EQ(SquareAt(64, 0, 517, 517), (Square{1, 1}));
    EXPECT_EQ(SquareAt(65, 0, 517, 517), (Square{2, 1}));
}

TEST(SquareAt, SizesAndPositionsRoundHalfToEven) {
    EXPECT_EQ(SquareAt(64, 0, 516, 516), (Square{2, 1})); // 64.5 goes to 64
    EXPECT_EQ(SquareAt(65, 0, 524, 524), (Square{1, 1})); // 65.5 goes to 66
    EXPECT_EQ(SquareAt(63.5, 62.5, 512, 504), (Square{2, 1}));
    EXPECT_EQ(SquareAt(-0.5, 0, 512, 512), (Square{1, 1}));
    EXPECT_EQ(SquareAt(-0.6, 0, 512, 512), kNone);
}

TEST(SquareAt, ABoardTooSmallForSquaresHasNone) {
    EXPECT_EQ(SquareAt(0, 0, 0, 0), kNone);
    EXPECT_EQ(SquareAt(0, 0, 3, 512), kNone);
    EXPECT_EQ(SquareAt(0, 0, 512, -8), kNone);
    EXPECT_EQ(SquareAt(3, 7, 8, 8), (Square{4, 8}));
}

TEST(Deposit, KeepsTheSquareForTheNextPass) {
    TestGame g("turn B | BM 4D");
    g.main.DepositSquare({4, 4});
    EXPECT_EQ(g.game.PendingSquare(), (Square{4, 4}));
    EXPECT_EQ(g.game.GameState, kPickPiece);
    g.main.Pass();
    EXPECT_EQ(g.game.GameState, kPlacePiece);
}

TEST(Deposit, OffTheBoardLeavesNothingPendingAndNoMessage) {
    TestGame g("turn B | BM 4D");
    for (const Square square : {Square{0, 0}, Square{0, 4}, Square{4, 0}, Square{9, 4}, Square{4, 9},
                                Square{-1, 4}, Square{65'540, 4}}) {
        g.port.message = "old";
        g.main.DepositSquare(square);
        EXPECT_EQ(g.game.ClickX, 0);
        EXPECT_EQ(g.game.ClickY, 0);
        EXPECT_EQ(g.port.message, "old");
    }
    EXPECT_EQ(g.port.beeps, 0);
}

TEST(Deposit, AfterGameOverDoesNothingAtAll) {
    TestGame g("turn B | BM 4D");
    g.net.NetConnected = g.net.InGame = true;
    g.net.PlayingBlue = false;
    g.game.GameState = kGameOver;
    const Game before = g.game;
    g.port.message = "old";
    g.Click("4D");
    EXPECT_EQ(g.game, before);
    EXPECT_EQ(g.port.message, "old");
    EXPECT_EQ(g.port.beeps, 0);
}

TEST(Deposit, OutOfTurnInANetworkGameIsRefused) {
    for (const bool playingBlue : {true, false}) {
        TestGame g(playingBlue ? "turn R | BM 4D" : "turn B | BM 4D");
        g.net.NetConnected = g.net.InGame = true;
        g.net.PlayingBlue = playingBlue;
        g.Click("4D");
        EXPECT_EQ(g.port.message, "Not your turn.");
        EXPECT_EQ(g.port.beeps, 1);
        EXPECT_EQ(g.game.ClickX, 0);
        EXPECT_EQ(g.game.GameState, kPickPiece);
    }
}

TEST(Deposit, InTurnInANetworkGameIsTaken) {
    for (const bool playingBlue : {true, false}) {
        TestGame g(playingBlue ? "turn B | BM 4D" : "turn R | RM 4D");
        g.net.NetConnected = g.net.InGame = true;
        g.net.PlayingBlue = playingBlue;
        g.Click("4D");
        EXPECT_EQ(g.game.GameState, kPlacePiece);
    }
}

TEST(Deposit, InALocalGameBothPlayersClickAtTheSameScreen) {
    TestGame g("turn R | RM 4D");
    g.Click("4D");
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    TestGame connectedOnly("turn R | RM 4D");
    connectedOnly.net.NetConnected = true;
    connectedOnly.Click("4D");
    EXPECT_EQ(connectedOnly.game.GameState, kPlacePiece);
}

TEST(Deposit, AReturnOnATakenSquareIsRefusedAndThePlayerMayClickAgain) {
    TestGame g("turn B | BM 4D | RO 4E | RM 1A | jail BP");
    g.Move("4D", "4E");
    g.main.DepositSquare(SquareOf("1A"));
    EXPECT_EQ(g.port.message, "That position is not free. Please click on the position where you'd like to "
                              "return your Pawn to play.");
    EXPECT_EQ(g.port.beeps, 2); // the capture and this
    EXPECT_EQ(g.game.ClickX, 0);
    EXPECT_EQ(g.game.ClickY, 0);
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    g.Click("1B");
    EXPECT_EQ(g.On("1B"), 8);
}

TEST(Deposit, TheRefusalNamesThePieceThatComesBack) {
    TestGame g("turn B | BM 4D | RM 4E | jail BO");
    g.Move("4D", "4E");
    g.Click("4E");
    EXPECT_EQ(g.port.message, "That position is not free. Please click on the position where you'd like to "
                              "return your Officer to play.");
}

TEST(Deposit, AReturnOffTheBoardIsNoMessage) {
    TestGame g("turn B | BM 4D | RO 4E | jail BP");
    g.Move("4D", "4E");
    g.port.message = "old";
    g.main.DepositSquare({9, 1});
    EXPECT_EQ(g.port.message, "old");
    EXPECT_EQ(g.game.GameState, kReturnPiece);
}

TEST(Deposit, WhileAPieceIsMovingNothingIsTaken) {
    TestGame g("turn B | BM 4D");
    g.game.Animating = true;
    g.main.DepositSquare({4, 4});
    EXPECT_EQ(g.game.ClickX, 0);
}

TEST(Deposit, WhileTheReturnIsBeingChosenNothingIsTaken) {
    TestGame g("turn B | BM 4D | RM 4E | jail BP BO");
    g.port.onChooseReturn = [&] { g.Click("1A"); };
    g.Move("4D", "4E");
    EXPECT_EQ(g.port.returnQuestions, 1);
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    EXPECT_EQ(g.On("1A"), 0);
}

TEST(IsSquareFree, IsTrueWhereNoPieceStands) {
    TestGame g("turn B | BM 4D | RP 8H | jail BP");
    g.game.ClickX = g.game.ClickY = 4;
    EXPECT_FALSE(IsSquareFree(g.game));
    g.game.ClickX = g.game.ClickY = 8;
    EXPECT_FALSE(IsSquareFree(g.game));
    g.game.ClickX = 4;
    EXPECT_TRUE(IsSquareFree(g.game));
    g.game.ClickX = g.game.ClickY = 1;
    EXPECT_TRUE(IsSquareFree(g.game)) << "the jailed piece's square";
}

} // namespace
} // namespace tarveth::test
