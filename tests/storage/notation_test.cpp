// The lines of the move history.
#include "storage/notation.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tarveth::test {
namespace {

TEST(SquareText, IsTheColumnNumberAndTheRowLetter) {
    EXPECT_EQ(SquareText(1, 1), "1A");
    EXPECT_EQ(SquareText(4, 2), "4B");
    EXPECT_EQ(SquareText(8, 8), "8H");
}

TEST(SquareText, RowsOffTheBoardGiveTheCharactersAround) {
    EXPECT_EQ(SquareText(0, 0), "0@");
    EXPECT_EQ(SquareText(3, -1), "3?");
    EXPECT_EQ(SquareText(-4, -8), "-48");
    EXPECT_EQ(SquareText(10, 9), "10I");
}

TEST(MoveText, NamesMoverSideKindOriginAndDestination) {
    const TestGame g("turn R | RO 4D<5C");
    EXPECT_EQ(MoveText(g.game, 17), "R:RO 5C-4D");
}

TEST(MoveText, TheMoverIsTheSideToMoveTheSideIsThePieces) {
    const TestGame controlled("turn B | RP 4D<5C");
    EXPECT_EQ(MoveText(controlled.game, 21), "B:RP 5C-4D");
    const TestGame own("turn B | BM 4D<5C");
    EXPECT_EQ(MoveText(own.game, 1), "B:BM 5C-4D");
}

TEST(MoveText, ASideThatIsNotBlueIsRedAndAnUnknownKindIsAPawn) {
    TestGame g("turn B | BM 4D<5C");
    for (const std::int16_t side : {std::int16_t{0}, std::int16_t{3}, std::int16_t{-1}}) {
        g.game.Piece(1).Side = side;
        g.game.Turn = side;
        g.game.Piece(1).Kind = Master;
        EXPECT_EQ(MoveText(g.game, 1), "R:RM 5C-4D");
    }
    for (const std::int16_t kind : {std::int16_t{0}, std::int16_t{3}, std::int16_t{4}, std::int16_t{-2}}) {
        g.game.Piece(1).Kind = kind;
        EXPECT_EQ(MoveText(g.game, 1), "R:RP 5C-4D");
    }
}

TEST(MoveText, AFractionOfASquareIsRounded) {
    TestGame g("turn B | BM 4D<4C");
    g.game.Piece(1).Y += Currency::FromRaw(2'500);
    EXPECT_EQ(MoveText(g.game, 1), "B:BM 4C-4D");
}

TEST(CaptureText, NamesTheTakenPiece) {
    TestGame g;
    EXPECT_EQ(CaptureText(g.game, 8), "cBP");
    EXPECT_EQ(CaptureText(g.game, 17), "cRO");
    EXPECT_EQ(CaptureText(g.game, 14), "cRM");
    g.game.Piece(8).Kind = 9;
    g.game.Piece(8).Side = 0;
    EXPECT_EQ(CaptureText(g.game, 8), "cRP");
}

TEST(History, AMoveAddsItsLine) {
    TestGame g("turn B | BM 4D<5C");
    HistoryAddMove(g.game, 1);
    EXPECT_EQ(g.game.lstHistory, std::vector<std::string>{"B:BM 5C-4D"});
}

TEST(History, ACaptureAddsMoveAndCaptureInOneLine) {
    TestGame g("turn R | RO 4D<5C | BP 1A");
    HistoryAddCapture(g.game, 17, 8);
    EXPECT_EQ(g.game.lstHistory, std::vector<std::string>{"R:RO 5C-4D cBP"});
}

TEST(History, AReturnIsIndentedByTwoBlanks) {
    TestGame g;
    g.game.Return.ReturnKind = Pawn;
    HistoryAddReturn(g.game, {2, 7});
    g.game.Turn = Red;
    g.game.Return.ReturnKind = Officer;
    HistoryAddReturn(g.game, {8, 1});
    g.game.Turn = 7;
    g.game.Return.ReturnKind = 0;
    HistoryAddReturn(g.game, {8, 1});
    EXPECT_EQ(g.game.lstHistory, (std::vector<std::string>{"  BP r2G", "  RO r8A", "  R r8A"}));
}

TEST(History, LinesAreAddedAtTheEnd) {
    TestGame g;
    g.Move("4E", "4D");
    g.Move("5D", "5E");
    EXPECT_EQ(g.game.lstHistory, (std::vector<std::string>{"B:BP 4E-4D", "R:RP 5D-5E"}));
}

TEST(History, EachLineIsShownAsItIsAdded) {
    TestGame g;
    g.port.calls.clear();
    g.Move("4E", "4D");
    EXPECT_EQ(std::count(g.port.calls.begin(), g.port.calls.end(), "history"), 1);
}

} // namespace
} // namespace tarveth::test
