#include "engine/rules/checkgame.h"

#include "tests/TestGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {

TEST(CheckGame, FindsNothingWrongWithANewGame) {
    EXPECT_EQ(CheckGame(TestGame().game), "");
}

TEST(CheckGame, FindsNothingWrongWithACaptureAndAReturn) {
    TestGame table("turn B | BM 1A | RO 1B | RM 8H | jail BP");
    table.Move("1A", "1B");
    EXPECT_EQ(table.game.GameState, kReturnPiece);
    EXPECT_EQ(CheckGame(table.game), "");
    table.Click("5E");
    EXPECT_EQ(table.game.Turn, Red);
    EXPECT_EQ(CheckGame(table.game), "");
}

TEST(CheckGame, FindsTwoPiecesOnASquare) {
    TestGame table;
    SetPieceSquare(table.game, 2, table.game.Piece(1).X, table.game.Piece(1).Y, 0, 0);
    EXPECT_EQ(CheckGame(table.game), "piece 2 stands on another piece");
}

TEST(CheckGame, FindsAPieceBetweenSquaresUnlessItIsBeingAnimated) {
    TestGame table;
    table.game.Piece(1).X += Currency::FromRaw(Currency::kScale / 4);
    EXPECT_EQ(CheckGame(table.game), "piece 1 stands neither on a square nor in the jail");
    table.game.Animating = true;
    table.game.AnimatedPiece = 1;
    EXPECT_EQ(CheckGame(table.game), "");
}

TEST(CheckGame, FindsAPieceFarOutsideTheBoard) {
    TestGame table;
    table.game.Piece(1).Y = 100'000; // more than 16 bits
    EXPECT_EQ(CheckGame(table.game), "piece 1 stands neither on a square nor in the jail");
}

TEST(CheckGame, FindsAJailEntryWhosePieceIsOnTheBoard) {
    TestGame table;
    PieceRecord copy = table.game.Piece(1);
    copy.X = -copy.X;
    copy.Y = -copy.Y;
    table.game.JailTable.push_back(copy);
    EXPECT_EQ(CheckGame(table.game), "jail entry 1 has no piece off the board");
}

TEST(CheckGame, FindsAnUnknownKindSideTurnStateAndSelection) {
    TestGame table;
    table.game.Piece(26).Kind = 4;
    EXPECT_EQ(CheckGame(table.game), "piece 26 has no side or kind");
    table.main.NewGame();
    table.game.Turn = NoSide;
    EXPECT_EQ(CheckGame(table.game), "it is nobody's turn");
    table.main.NewGame();
    table.game.GameState = 9;
    EXPECT_EQ(CheckGame(table.game), "there is no state 9");
    table.main.NewGame();
    table.game.GameState = kPlacePiece;
    EXPECT_EQ(CheckGame(table.game), "the selected piece is not on the board");
}

TEST(CheckGame, FindsMissingPieces) {
    TestGame table;
    table.game.PieceTable.pop_back();
    EXPECT_EQ(CheckGame(table.game), "there are not 26 pieces");
}

} // namespace tarveth::test
