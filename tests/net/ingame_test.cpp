// Squares, returns, private lines and unknown texts: what the in-game messages put into the queues, and what
// the board makes of it.
#include "tests/net/ToolsGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

TEST(InGameSquares, TwoInOneTextAreQueuedInOrder) {
    ToolsGame g;
    g.Parse("M(3,4)M(3,6)");
    EXPECT_EQ(g.net.RemoteX.Text(), "3|3|");
    EXPECT_EQ(g.net.RemoteY.Text(), "4|6|");
}

TEST(InGameSquares, MayHaveBlanksAroundTheirNumbers) {
    ToolsGame g;
    g.Parse("M(3, 4)M( 5 ,6 )");
    EXPECT_EQ(g.net.RemoteX.Text(), "3|5|");
    EXPECT_EQ(g.net.RemoteY.Text(), "4|6|");
}

TEST(InGameSquares, FurtherFieldsArePassedOver) {
    ToolsGame g;
    g.Parse("M(3,4,5,x)");
    EXPECT_EQ(g.net.RemoteX.Text(), "3|");
    EXPECT_EQ(g.net.RemoteY.Text(), "4|");
}

TEST(InGameSquares, ArePlayedAsTheOpponentsClicks) {
    ToolsGame g("turn R | RM 3D | BM 8H");
    g.Receive("M(3, 4)M(3, 6)");
    EXPECT_EQ(g.On("3F"), 14);
    EXPECT_EQ(g.game.Turn, Blue);
    EXPECT_TRUE(g.port.sent.empty()) << "no echo";
}

TEST(InGameSquares, TwoZerosAreNoSquareAndNoReturn) {
    for (const char* text : {"M(0, 0)", "M(0,0)", "M(-0,00)"}) {
        ToolsGame g;
        g.Parse(text);
        EXPECT_TRUE(g.net.RemoteX.IsEmpty()) << text;
        g.Receive("M(4,5)");
        EXPECT_EQ(g.game.GameState, kPlacePiece) << "the next one is a square of its own";
        EXPECT_TRUE(g.port.notices.empty());
    }
}

TEST(InGameSquares, WithoutTwoNumbersOf16BitsAreRefusedAndTheNextIsTaken) {
    for (const char* text : {"M(x,4)", "M(3,)", "M(3)", "M()", "M(3 4)", "M(32768,1)", "M(1,-32769)",
                             "M(99999999999999999999,1)", "M((3),4)"}) {
        ToolsGame g;
        g.Parse(std::string(text) + "M(4,5)");
        EXPECT_EQ(g.port.notices, Strings{kNotUnderstood}) << text;
        EXPECT_EQ(g.net.RemoteX.Text(), "4|") << text;
    }
}

TEST(InGameSquares, OffTheBoardAreRefusedWhenTheirTurnComes) {
    for (const char* text : {"M(9,4)", "M(0,4)", "M(4,0)", "M(-1,4)", "M(32767,-32768)"}) {
        ToolsGame g;
        const Game before = g.game;
        g.Receive(text);
        EXPECT_EQ(g.port.notices, Strings{"The opponent's program sent a square that is not on the board; "
                                          "it is ignored."})
            << text;
        EXPECT_EQ(g.game, before) << text;
    }
}

TEST(InGameSquares, BehindTheSelectionOfTheLocalPlayerAreItsDestination) {
    ToolsGame g("turn B | BM 4D | RM 8H");
    g.Click("4D");
    g.Receive("M(4, 6)");
    EXPECT_EQ(g.On("4F"), 1);
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(InGameSquares, ByTheThousandLeaveTheWindowTimeAndAreAllPlayed) {
    ToolsGame g("turn B | BM 4D | RM 8H");
    std::string text;
    for (int i = 0; i < 5001; ++i)
        text += "M(4, 4)M(4, 4)";
    g.Parse(text + "M(4,4)");
    EXPECT_TRUE(g.main.RunPasses());
    EXPECT_FALSE(g.net.RemoteX.IsEmpty());
    g.Settle();
    EXPECT_TRUE(g.net.RemoteX.IsEmpty());
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    EXPECT_FALSE(g.main.HasWork());
}

TEST(InGameSquares, WithoutEndDoNotFillTheMemory) {
    ToolsGame g;
    g.Parse("M(4,5)");
    g.main.Pass();
    const std::string burst = Join(Strings(10'000, "M(4,5)"));
    std::size_t longest = 0;
    for (int i = 0; i < 60; ++i) {
        g.Parse(burst);
        longest = std::max(longest, g.net.RemoteX.Text().size());
    }
    EXPECT_LE(longest, std::size_t{1} << 20);
    EXPECT_EQ(g.port.notices, Strings{"The opponent's program sends more squares than can be played; those "
                                      "that wait are ignored."});
    EXPECT_TRUE(g.net.RemoteMove) << "the square that was taken already is still the opponent's";
}

TEST(InGameReturns, AreTwoZerosAndThenTheSquare) {
    ToolsGame g;
    g.Parse("R(2,7,8,3)");
    EXPECT_EQ(g.net.RemoteX.Text(), "0|2|");
    EXPECT_EQ(g.net.RemoteY.Text(), "0|7|");
    EXPECT_EQ(g.net.ReturnPieceIndex.Text(), "8|");
    EXPECT_EQ(g.net.ReturnSlot.Text(), "3|");
}

TEST(InGameReturns, OfAPawnSaySoOfAnyOtherKindSayOfficer) {
    ToolsGame g;
    g.Parse("R(1,1,13,1)R(1,1,26,1)R(1,1,7,1)R(1,1,1,1)R(1,1,0,1)R(1,1,27,1)R(1,1,-1,1)");
    EXPECT_EQ(g.net.ReturnPieceName.Text(), "Pawn|Pawn|Officer|Officer|Officer|Officer|Officer|");
}

TEST(InGameReturns, WithoutFourNumbersOf16BitsAreRefused) {
    for (const char* text : {"R(2,7,8)", "R()", "R(x,7,8,3)", "R(2,,8,3)", "R(2,7,8,65537)", "R(2,7,8,)"}) {
        ToolsGame g;
        g.Parse(text);
        EXPECT_EQ(g.port.notices, Strings{kNotUnderstood}) << text;
        EXPECT_TRUE(g.net.RemoteX.IsEmpty()) << text;
        EXPECT_TRUE(g.net.ReturnSlot.IsEmpty()) << text;
    }
}

TEST(InGameReturns, BringThePieceBack) {
    ToolsGame g("turn R | RM 4D | BM 4E | BM 8H | jail RP");
    g.Receive("M(4, 4)M(4, 5)R(2,7,21,1)");
    EXPECT_EQ(g.On("2G"), 21);
    EXPECT_EQ(g.game.lstHistory, (Strings{"R:RM 4D-4E cBM", "  RP r2G"}));
    EXPECT_EQ(g.game.Turn, Blue);
}

TEST(InGameReturns, OfOurOwnPieceAreTheLocalPlayersToPlace) {
    ToolsGame g("turn B | BM 4D | RM 4E | RM 8H | jail BP");
    g.Move("4D", "4E");
    ASSERT_EQ(g.game.GameState, kReturnPiece);
    g.port.sent.clear();
    g.Receive("M(2, 7)");
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    EXPECT_EQ(g.On("2G"), 0) << "it would stand there on this board only";
    EXPECT_EQ(g.port.message, "Waiting for placement of returned piece.");
    g.Click("1A");
    EXPECT_EQ(g.port.sent, Strings{"R(1,1,8,1)"});
}

TEST(InGameLines, AreShownWholeWithCommasAndParentheses) {
    ToolsGame g;
    g.Parse("X(well, (so, so) , \"ha\")X()X( )M(3,4)");
    EXPECT_EQ(g.opponent.privateLines, (Strings{"well, (so, so) , \"ha\"", "", " "}));
    EXPECT_EQ(g.net.RemoteX.Text(), "3|");
}

TEST(InGameTexts, ThatAreNoMessageGoUpToTheirClosingParenthesis) {
    for (const char* text : {"Q(1)", "m(3,4)", "MM(1,2)", "(a)", " M(1,2)", "hello (a(b)c)", "M[(x)", "()"}) {
        ToolsGame g;
        g.Parse(std::string(text) + "M(3,4)");
        EXPECT_EQ(g.net.RemoteX.Text(), "3|") << text;
        EXPECT_TRUE(g.port.notices.empty()) << text;
    }
}

TEST(InGameTexts, WithoutAClosingParenthesisGoWhole) {
    for (const char* text : {"", "M", "M(", "M(3,4", "hello", "Q(M(3,4)", "X((a)", ")", "((((((", "P(1"}) {
        ToolsGame g;
        const Game before = g.game;
        g.Parse(text);
        EXPECT_EQ(g.game, before) << text;
        EXPECT_TRUE(g.net.RemoteX.IsEmpty()) << text;
        EXPECT_TRUE(g.opponent.privateLines.empty()) << text;
    }
}

TEST(InGameTexts, OfACommandThatIsNoneAreIgnored) {
    ToolsGame g;
    const Game before = g.game;
    g.Receive("C()C(Board)C(pause)C(board,)C(play");
    EXPECT_EQ(g.game.PieceTable, before.PieceTable);
    EXPECT_EQ(g.game.GameState, kGetBoard) << "a further field changes nothing";
}

// Messages may come in one text, or each in its own with passes in between: the end is the same.
class Streams : public testing::TestWithParam<Strings> {};

TEST_P(Streams, GiveTheSameGluedAndSplit) {
    const std::string_view position = "turn R | RM 4D | BM 4E | BM 8H | BO 1A | RO 8A | jail RP BP RO";
    ToolsGame glued(position);
    glued.Receive(Join(GetParam()));
    ToolsGame split(position);
    split.Receive(GetParam());
    EXPECT_EQ(glued.game, split.game);
    EXPECT_EQ(glued.port.notices, split.port.notices);
    EXPECT_EQ(glued.opponent.privateLines, split.opponent.privateLines);
    EXPECT_EQ(glued.port.localSide, split.port.localSide);
    EXPECT_EQ(glued.port.message, split.port.message);
    EXPECT_EQ(glued.port.prompt, split.port.prompt);
    EXPECT_FALSE(glued.main.HasWork());
}

Strings Board(const Strings& between = {}) {
    ToolsGame sender;
    sender.Move("4E", "4D");
    Strings messages = sender.BoardSent();
    messages.insert(messages.begin() + 30, between.begin(), between.end());
    return messages;
}

Strings Then(Strings messages, const Strings& more) {
    messages.insert(messages.end(), more.begin(), more.end());
    return messages;
}

INSTANTIATE_TEST_SUITE_P(
    InGame, Streams,
    testing::Values(Strings{"M(4, 4)", "M(4, 6)", "M(1, 1)", "M(1, 2)"}, Strings{"M(4, 4)", "M(4, 4)"},
                    Strings{"M(4, 4)", "M(4, 5)", "R(2,7,21,1)", "M(8, 8)", "M(8, 7)"},
                    Strings{"M(4, 4)", "M(4, 5)", "R(2,7,17,3)", "X(a, b)", "M(0, 0)", "M(9, 9)", "M(8, 8)"},
                    Strings{"M(4, 4)", "M(4, 5)", "R(8,8,21,1)", "M(1, 1)", "R(2,7,21,1)"},
                    Strings{"M(4, 4)", "C(swap)", "M(4, 6)", "C(swap)", "X(hello)"},
                    Strings{"Q(1)", "M(x,y)", "X(M(1,2))", "M(4, 4)", "foo(bar)", "M(4, 6)"},
                    Then(Board(), {"M(3, 4)", "M(3, 5)", "X(your move)"}), Then({"M(4, 4)"}, Board()),
                    Then(Board({"M(4, 4)", "M(4, 6)", "X(wait)", "P(99,1,1,1,1,1,1)"}), {"M(3, 4)"}),
                    Then(Board({"C(board)"}), {"M(3, 4)"}), Board({"P(2,1,1,3,3,0,0)", "P(3,1,1,3,3,0,0)"})));

} // namespace
} // namespace tarveth::test
