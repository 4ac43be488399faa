// The opponent's squares and returns, from the text queues to the board.
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarveth::test {
namespace {

// A network game in which the opponent plays Blue.
struct RemoteGame : TestGame {
    explicit RemoteGame(std::string_view position) : TestGame(position) {
        net.NetConnected = net.InGame = true;
        net.PlayingBlue = false;
    }
    void QueueSquare(std::string_view square) {
        net.RemoteX.Append(std::to_string(SquareOf(square).column));
        net.RemoteY.Append(std::to_string(SquareOf(square).row));
    }
    void QueueReturn(const std::string& x, const std::string& y, const std::string& piece,
                     const std::string& slot, const std::string& name) {
        net.RemoteX.Append("0");
        net.RemoteY.Append("0");
        net.RemoteX.Append(x);
        net.RemoteY.Append(y);
        net.ReturnPieceIndex.Append(piece);
        net.ReturnSlot.Append(slot);
        net.ReturnPieceName.Append(name);
    }
    bool QueuesEmpty() const {
        return net.RemoteX.IsEmpty() && net.RemoteY.IsEmpty() && net.ReturnPieceIndex.IsEmpty() &&
               net.ReturnSlot.IsEmpty() && net.ReturnPieceName.IsEmpty();
    }
};

TEST(Queues, GiveTheirItemsInOrderAndThenTheEmptyText) {
    TextQueue queue("3|4||12|");
    EXPECT_EQ(PopQueueItem(queue), "3");
    EXPECT_EQ(PopQueueItem(queue), "4");
    EXPECT_EQ(PopQueueItem(queue), "");
    EXPECT_EQ(queue.Text(), "12|");
    EXPECT_EQ(PopQueueItem(queue), "12");
    EXPECT_TRUE(queue.IsEmpty());
    EXPECT_EQ(PopQueueItem(queue), "");
}

TEST(Queues, AnItemWithoutItsEndMarkIsTakenWhole) {
    TextQueue queue("34");
    EXPECT_EQ(PopQueueItem(queue), "34");
    EXPECT_TRUE(queue.IsEmpty());
}

TEST(Queues, HoldWhatIsAddedWhileTheyAreTakenFrom) {
    TextQueue queue;
    int taken = 0;
    for (int i = 0; i < 1000; ++i) {
        queue.Append(std::to_string(2 * i));
        queue.Append(std::to_string(2 * i + 1));
        EXPECT_EQ(PopQueueItem(queue), std::to_string(taken++));
    }
    while (!queue.IsEmpty())
        EXPECT_EQ(PopQueueItem(queue), std::to_string(taken++));
    EXPECT_EQ(taken, 2000);
}

TEST(Queues, NumbersAreReadByValueWhatIsNoneIsMinusOne) {
    EXPECT_EQ(QueueNumber("7"), 7);
    EXPECT_EQ(QueueNumber(" 7"), 7);
    EXPECT_EQ(QueueNumber("007"), 7);
    EXPECT_EQ(QueueNumber("-3"), -3);
    EXPECT_EQ(QueueNumber("32767"), 32'767);
    for (const char* text : {"", " ", "x", "32768", "99999999999999999999", "|"})
        EXPECT_EQ(QueueNumber(text), -1) << text;
}

TEST(Remote, TwoQueuedSquaresAreASelectionAndItsDestination) {
    RemoteGame g("turn B | BM 3D | RM 8H");
    g.QueueSquare("3D");
    g.QueueSquare("3F");
    g.main.RunPasses();
    EXPECT_EQ(g.On("3F"), 1);
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_TRUE(g.QueuesEmpty());
}

TEST(Remote, SquaresAreNotEchoedTheNextLocalClickIs) {
    RemoteGame g("turn B | BM 3D | RM 8H");
    g.QueueSquare("3D");
    g.QueueSquare("3F");
    g.main.RunPasses();
    EXPECT_TRUE(g.port.sent.empty());
    g.Click("8H");
    EXPECT_EQ(g.port.sent, std::vector<std::string>{"M(8, 8)"});
}

TEST(Remote, ASquareWaitsForTheNextPass) {
    RemoteGame g("turn B | BM 3D");
    g.QueueSquare("3D");
    g.main.Pass();
    EXPECT_TRUE(g.net.RemoteMove);
    EXPECT_EQ(g.game.PendingSquare(), SquareOf("3D"));
    EXPECT_EQ(g.game.GameState, kPickPiece);
    g.main.Pass();
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    EXPECT_FALSE(g.net.RemoteMove);
}

TEST(Remote, AMoveArrivingWhileTheLocalPlayerHasAPieceSelectedIsItsDestination) {
    RemoteGame g("turn R | RM 4D | BO 8H");
    g.Click("4D");
    ASSERT_EQ(g.game.GameState, kPlacePiece);
    g.QueueSquare("4F");
    g.main.RunPasses();
    EXPECT_EQ(g.On("4F"), 14);
    EXPECT_EQ(g.game.Turn, Blue);
    EXPECT_EQ(g.port.sent, std::vector<std::string>{"M(4, 4)"});
}

TEST(Remote, ARefusedSquareIsRefusedAsALocalOneIs) {
    RemoteGame g("turn B | BM 3D | RP 4D");
    g.QueueSquare("4D");
    g.main.RunPasses();
    EXPECT_EQ(g.port.message, "Not in a valid zone of control");
}

TEST(Remote, ABurstIsPlayedInTheOrderItWasSent) {
    RemoteGame g("turn B | BM 4D | RO 4E | RM 8H | BO 1A | jail RP BP");
    g.QueueSquare("4D");
    g.QueueSquare("4E");
    g.QueueReturn("2", "7", "8", "2", "Pawn");
    g.QueueSquare("8H"); // Red's turn by then
    g.QueueSquare("8G");
    g.QueueSquare("1A");
    g.QueueSquare("1C");
    g.main.RunPasses();
    EXPECT_EQ(g.game.lstHistory,
              (std::vector<std::string>{"B:BM 4D-4E cRO", "  BP r2G", "R:RM 8H-8G", "B:BO 1A-1C"}));
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_TRUE(g.QueuesEmpty());
    EXPECT_TRUE(g.port.notices.empty());
}

TEST(Remote, SquaresWaitWhileATurnIsBeingCompleted) {
    for (const std::int16_t state : {std::int16_t{4}, std::int16_t{5}}) {
        RemoteGame g("turn B | BM 4D | RO 1H | jail BP RO");
        g.game.Return.CapturedPiece = 18;
        g.QueueSquare("4D");
        g.game.ClickX = g.game.ClickY = 1; // keeps the state for this pass
        g.game.GameState = state;
        g.main.Pass();
        EXPECT_EQ(g.game.GameState, state);
        EXPECT_EQ(g.net.RemoteX.Text(), "4|") << state;
    }
}

TEST(Remote, AClickDoesNotPushASquareOfTheOpponentsAside) {
    RemoteGame g("turn R | RM 4D | BO 8H | RM 1A");
    g.QueueSquare("4D"); // in the local player's turn
    g.main.Pass();
    g.Click("1A");
    EXPECT_EQ(g.game.CurPiece, 14) << "4D came first";
    EXPECT_TRUE(g.port.sent.empty());
    g.Click("4F");
    EXPECT_EQ(g.port.sent, std::vector<std::string>{"M(4, 6)"});
}

TEST(Remote, ABurstIsPlayedAFewPassesAtATime) {
    RemoteGame g("turn B | BM 4D");
    for (int i = 0; i < 1001; ++i)
        g.QueueSquare("4D");
    int calls = 1;
    while (g.main.RunPasses()) {
        EXPECT_TRUE(g.main.HasWork());
        ++calls;
    }
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    EXPECT_FALSE(g.main.HasWork());
    EXPECT_GT(calls, 10);
    EXPECT_LT(calls, 100);
}

TEST(Remote, ASquareOffTheBoardIsRefusedWithANoticeAndChangesNothing) {
    for (const char* x : {"9", "-1", "0", "x", "", "65540", "99999999"}) {
        RemoteGame g("turn B | BM 4D | jail BP");
        g.net.RemoteX = TextQueue(std::string(x) + '|');
        g.net.RemoteY = TextQueue("4|");
        const Game before = g.game;
        g.main.RunPasses();
        EXPECT_EQ(g.game, before) << x;
        EXPECT_EQ(g.port.notices.size(), 1U) << x;
        EXPECT_FALSE(g.net.RemoteMove);
    }
}

TEST(Remote, SquaresAfterTheEndOfTheGameAreDropped) {
    RemoteGame g("turn B | BM 4D | jail RM RM RM");
    g.main.RunPasses();
    const Game before = g.game;
    g.QueueSquare("4D");
    g.QueueSquare("4E");
    g.main.RunPasses();
    EXPECT_EQ(g.game, before);
    EXPECT_TRUE(g.QueuesEmpty());
}

TEST(Remote, AQueueWithoutItsPartnerIsUsedUp) {
    RemoteGame g("turn B | BM 4D");
    g.net.RemoteX = TextQueue("4|0|0|4|");
    const Game before = g.game;
    g.main.RunPasses();
    EXPECT_EQ(g.game, before);
    EXPECT_TRUE(g.net.RemoteX.IsEmpty());
}

class RemoteReturn : public testing::Test {
protected:
    RemoteGame g{"turn B | BM 4D | RM 4E | RM 8H | BO 8A | jail RP BM BP BO BP"};

    // Takes a Master: 14 is in slot 6, and the opponent may bring back a Pawn or an Officer.
    void SetUp() override {
        g.QueueSquare("4D");
        g.QueueSquare("4E");
        g.main.RunPasses();
        ASSERT_EQ(g.game.GameState, kReturnPiece);
        ASSERT_EQ(g.game.JailCount(), 6);
    }

    void ExpectRefused(const std::string& x, const std::string& y, const std::string& piece,
                       const std::string& slot) {
        const Game before = g.game;
        const std::size_t notices = g.port.notices.size();
        g.QueueReturn(x, y, piece, slot, "Pawn");
        g.main.RunPasses();
        EXPECT_EQ(g.game, before) << x << ',' << y << ',' << piece << ',' << slot;
        EXPECT_EQ(g.port.notices.size(), notices + 1);
        EXPECT_TRUE(g.QueuesEmpty());
        EXPECT_FALSE(g.net.RemoteMove);
    }
};

TEST_F(RemoteReturn, IsAppliedInThePassInWhichItIsTaken) {
    g.QueueReturn("2", "7", "8", "3", "Pawn");
    g.main.Pass();
    EXPECT_EQ(g.On("2G"), 8);
    EXPECT_EQ(g.game.GameState, kTurnOver);
    EXPECT_EQ(g.game.ClickX, 0);
    EXPECT_FALSE(g.net.RemoteMove);
}

TEST_F(RemoteReturn, LeavesTheSameTablesAndHistoryAsOnTheOpponentsSide) {
    g.QueueReturn("2", "7", "5", "4", "Officer");
    g.main.RunPasses();
    EXPECT_EQ(g.On("2G"), 5);
    EXPECT_EQ(g.game.JailCount(), 5);
    EXPECT_EQ(g.game.Jailed(4).Kind, Master) << "the last entry has moved into the freed slot";
    EXPECT_EQ(g.game.Jailed(4).Side, Red);
    EXPECT_EQ(g.game.lstHistory.back(), "  BO r2G");
    EXPECT_EQ(g.port.message, "Blue Officer returned to play.");
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_TRUE(g.port.sent.empty());
}

TEST_F(RemoteReturn, OffTheBoardIsRefused) {
    ExpectRefused("0", "0", "8", "3");
    ExpectRefused("9", "1", "8", "3");
    ExpectRefused("1", "-1", "8", "3");
    ExpectRefused("x", "1", "8", "3");
}

TEST_F(RemoteReturn, OnATakenSquareIsRefused) {
    ExpectRefused("8", "8", "8", "3");
    ExpectRefused("8", "1", "8", "3");
}

TEST_F(RemoteReturn, OfAPieceThatCannotComeBackIsRefused) {
    ExpectRefused("2", "7", "0", "3");   // no piece
    ExpectRefused("2", "7", "27", "3");  // outside the table
    ExpectRefused("2", "7", "-1", "3");  // outside the table
    ExpectRefused("2", "7", "4", "4");   // on the board
    ExpectRefused("2", "7", "21", "1");  // the other side's
    ExpectRefused("2", "7", "2", "2");   // a Master
    ExpectRefused("2", "7", "x", "3");   // no number
    ExpectRefused("2", "7", "264", "3"); // would wrap in a byte
}

TEST_F(RemoteReturn, OfAnotherPieceThanThisProgramWouldTakeIsRefused) {
    ExpectRefused("2", "7", "9", "5"); // the second Pawn while the first is in the jail
}

TEST_F(RemoteReturn, FromASlotThatDoesNotHoldItIsRefused) {
    ExpectRefused("2", "7", "8", "0");
    ExpectRefused("2", "7", "8", "7");
    ExpectRefused("2", "7", "8", "-1");
    ExpectRefused("2", "7", "8", "1"); // a Red Pawn
    ExpectRefused("2", "7", "8", "4"); // an Officer
    ExpectRefused("2", "7", "5", "3"); // a Pawn
}

TEST_F(RemoteReturn, AfterARefusedOneAPossibleOneIsTaken) {
    ExpectRefused("8", "8", "8", "3");
    g.QueueReturn("2", "7", "8", "3", "Pawn");
    g.main.RunPasses();
    EXPECT_EQ(g.On("2G"), 8);
}

TEST_F(RemoteReturn, ASquareInsteadOfItOnlySaysThatItIsAwaited) {
    g.QueueSquare("1A");
    g.main.RunPasses();
    EXPECT_EQ(g.port.message, "Waiting for placement of returned piece.");
    EXPECT_EQ(g.game.GameState, kReturnPiece);
}

TEST(RemoteReturns, AtTheHeadOfTheQueueAreTakenBeforeTheReturnCheck) {
    RemoteGame g("turn B | BM 4D | RM 4E | RM 8H | jail BP");
    g.QueueSquare("4D");
    g.QueueSquare("4E");
    g.main.Pass();
    g.main.Pass();
    ASSERT_EQ(g.game.GameState, kPlacePiece);
    g.QueueReturn("2", "7", "8", "1", "Pawn");
    g.main.Pass();
    EXPECT_EQ(g.game.GameState, kTurnOver) << "captured and returned in one pass";
    EXPECT_EQ(g.On("2G"), 8);
}

TEST(RemoteReturns, OfAKindThatIsNotDueAreRefused) {
    RemoteGame g("turn B | BM 4D | RO 4E | RM 8H | jail BP BO");
    g.QueueSquare("4D");
    g.QueueSquare("4E"); // an Officer: a Pawn may come back
    g.QueueReturn("2", "7", "4", "2", "Officer");
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    EXPECT_EQ(g.port.notices.size(), 1U);
    g.QueueReturn("2", "7", "8", "1", "Pawn");
    g.main.RunPasses();
    EXPECT_EQ(g.On("2G"), 8);
}

TEST(RemoteReturns, ForAPieceOfTheMoversOwnSideAreRefused) {
    RemoteGame g("turn B | BM 4D | BO 4E | RM 8H | jail BP");
    g.QueueSquare("4D");
    g.QueueSquare("4E");
    g.QueueReturn("2", "7", "8", "1", "Pawn");
    g.main.RunPasses();
    EXPECT_EQ(g.On("2G"), 0);
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_EQ(g.port.notices.size(), 1U);
}

TEST(RemoteReturns, AreRefusedWhenNoneIsAwaited) {
    for (const std::int16_t state : {std::int16_t{1}, std::int16_t{2}, std::int16_t{6}, std::int16_t{8}}) {
        RemoteGame g("turn B | BM 4D | RO 8H | jail BP");
        g.game.CurPiece = 1;
        g.game.GameState = state;
        const auto pieces = g.game.PieceTable;
        g.QueueReturn("2", "7", "8", "1", "Pawn");
        g.main.RunPasses();
        EXPECT_EQ(g.game.PieceTable, pieces) << state;
        EXPECT_EQ(g.game.JailCount(), 1) << state;
        EXPECT_EQ(g.game.GameState, state);
        EXPECT_EQ(g.port.notices.size(), 1U);
    }
}

} // namespace
} // namespace tarveth::test
