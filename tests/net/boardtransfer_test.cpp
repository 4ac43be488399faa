// A whole board from one program to the other: what is sent, and what becomes of what arrives.
#include "engine/rules/checkgame.h"
#include "tests/net/ToolsGame.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarveth::test {
namespace {

// As after a move and two captures.
void PlayCaptures(TestGame& g) {
    SetPosition(g.game, "turn B | BM 4D<4C | RP 4E | RM 8H | RM 7H | RM 6H | BM 1A | BM 1B | BO 2B | BP 3B");
    for (int i = 1; i <= kPieces; ++i) // those that the position leaves out
        if (g.game.Piece(i).X == -9)
            g.game.Piece(i).X = g.game.Piece(i).Y = -1;
    g.Move("4D", "4E");
}

void ExpectSameBoard(const Game& game, const Game& other) {
    EXPECT_EQ(game.PieceTable, other.PieceTable);
    EXPECT_EQ(game.JailTable, other.JailTable);
    EXPECT_EQ(game.Turn, other.Turn);
    EXPECT_EQ(game.GameState, other.GameState);
}

Strings Without(Strings messages, std::string_view start) {
    std::erase_if(messages, [&](const std::string& message) { return message.starts_with(start); });
    return messages;
}

Strings NewBoard() {
    return ToolsGame().BoardSent();
}

TEST(SendBoard, SendsEveryElementOfBothTablesBetweenItsCommands) {
    const Strings sent = NewBoard();
    ASSERT_EQ(sent.size(), 31U);
    EXPECT_EQ(sent[0], "C(board)");
    EXPECT_EQ(sent[1], "P(0,0,0,0,0,0,0,0,0,0,0)");
    EXPECT_EQ(sent[2], "P(1,1,1,4,8,0,0,3,0,3,0)");
    EXPECT_EQ(sent[5], "P(4,1,2,4,7,0,0,2,0,2,0)");
    EXPECT_EQ(sent[27], "P(26,2,3,5,4,0,0,1,1,3,3)");
    EXPECT_EQ(sent[28], "J(0,0,0,0,0,0,0,0,0,0,0)");
    EXPECT_EQ(sent[29], "T(1)");
    EXPECT_EQ(sent[30], "C(play)");
}

TEST(SendBoard, GivesJailedPiecesNegativeSquares) {
    ToolsGame g;
    PlayCaptures(g);
    const Strings sent = g.BoardSent();
    EXPECT_EQ(sent[2], "P(1,1,1,4,5,4,4,3,0,3,0)");
    EXPECT_EQ(sent[22], "P(21,2,3,-4,-5,-4,-5,1,1,3,3)");
    EXPECT_EQ(sent[29], "J(1,2,3,-4,-5,4,5,1,1,3,3)");
    EXPECT_EQ(sent[30], "T(2)");
}

TEST(SendBoard, SaysWhatItDoes) {
    ToolsGame g;
    g.port.calls.clear();
    g.tools.SendBoard();
    EXPECT_EQ(g.port.calls,
              (Strings{"message Sending board information...", "message Board sent, commence play."}));
}

TEST(SendBoard, PutsASelectedPieceDownFirst) {
    ToolsGame g;
    g.Click("4E");
    g.BoardSent();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Turn, Blue);
}

TEST(SendBoard, GivesUpAReturnThatIsDueAndEndsTheTurn) {
    ToolsGame g("turn B | BM 4D | RM 4E | RM 8H | jail BP");
    g.Move("4D", "4E");
    ASSERT_EQ(g.game.GameState, kReturnPiece);
    EXPECT_EQ(g.BoardSent().at(g.game.PieceTable.size() + g.game.JailTable.size() + 1), "T(2)");
    EXPECT_EQ(g.game.GameState, kPickPiece);
}

TEST(SendBoard, EndsATurnThatIsOver) {
    for (const std::int16_t state : {kAllowReturn, kTurnOver}) {
        ToolsGame g("turn B | BM 4D | RO 8H | jail BP RO");
        g.game.Return.CapturedPiece = 18;
        g.game.GameState = state;
        g.BoardSent();
        EXPECT_EQ(g.game.GameState, kPickPiece);
        EXPECT_EQ(g.game.Turn, Red);
        EXPECT_EQ(g.port.returnQuestions, 0);
    }
}

TEST(SendBoard, ForgetsSquaresForTheBoardBefore) {
    ToolsGame g;
    g.Parse("M(4,5)M(4,4)");
    g.main.Pass();
    g.BoardSent();
    EXPECT_FALSE(g.main.HasWork());
    EXPECT_FALSE(g.net.RemoteMove);
}

TEST(ReceiveBoard, LeavesTheSameBoardAsTheSenders) {
    ToolsGame sender;
    PlayCaptures(sender);
    const Strings sent = sender.BoardSent();
    ToolsGame glued;
    glued.Receive(Join(sent));
    ExpectSameBoard(glued.game, sender.game);
    ToolsGame split;
    split.Receive(sent);
    ExpectSameBoard(split.game, sender.game);
    EXPECT_EQ(CheckGame(split.game), "");
}

TEST(ReceiveBoard, GoesThroughItsTwoStatesToTheFirst) {
    ToolsGame g;
    g.Receive("C(board)");
    EXPECT_EQ(g.game.GameState, kGetBoard);
    EXPECT_EQ(g.port.prompt, "Get Board");
    EXPECT_EQ(g.port.message, "Getting updated board information.");
    g.Parse("C(play)");
    EXPECT_EQ(g.game.GameState, kBoardArrived);
    g.main.Pass();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.port.prompt, "Pick piece");
    EXPECT_EQ(g.port.message, "Play may commence.");
}

TEST(ReceiveBoard, ShowsTheSideToMove) {
    ToolsGame g;
    g.Receive("C(board)T(2)");
    EXPECT_EQ(g.game.GameState, kGetBoard) << "the side alone is not the whole board";
    g.Receive("C(play)");
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_EQ(g.port.player, "Red");
}

TEST(ReceiveBoard, KeepsTheBoardOnTheScreenUntilTheOtherIsWhole) {
    ToolsGame g;
    const Game before = g.game;
    g.Receive(Without(Without(NewBoard(), "C(play)"), "P(1,"));
    g.Receive("P(1,1,1,1,5,0,0)J(1,2,3,-4,-5,4,5,1,1,3,3)");
    EXPECT_EQ(g.game.PieceTable, before.PieceTable);
    EXPECT_EQ(g.game.JailTable, before.JailTable);
}

TEST(ReceiveBoard, EmptiesTheJail) {
    ToolsGame g;
    PlayCaptures(g);
    ASSERT_EQ(g.game.JailCount(), 1);
    g.Receive(NewBoard());
    EXPECT_EQ(g.game.JailTable, std::vector<PieceRecord>(1));
}

TEST(ReceiveBoard, TakesTablesThatBeginWithOne) {
    ToolsGame g;
    g.Receive(Without(Without(NewBoard(), "P(0,"), "J(0,"));
    ExpectSameBoard(g.game, ToolsGame().game);
    EXPECT_TRUE(g.port.notices.empty());
}

TEST(ReceiveBoard, ReadsTheSquaresOnlyAsBothMadeTheSamePieces) {
    ToolsGame g;
    g.game.Piece(4).MaxMove = 7; // from a game loaded here
    g.Receive(Without(NewBoard(), "C(play)"));
    g.Receive("P(1,2,3,1,5,0,0,9,9,9,9)C(play)");
    EXPECT_EQ(g.On("1E"), 1);
    PieceRecord moved = ToolsGame().game.Piece(1);
    moved.X = 1;
    moved.Y = 5;
    EXPECT_EQ(g.game.Piece(1), moved);
    EXPECT_EQ(g.game.Piece(4).MaxMove, 2);
}

TEST(ReceiveBoard, BeginsARecordAndAHistoryOfItsOwn) {
    ToolsGame g;
    g.Move("4E", "4D");
    g.game.CurPiece = 12;
    g.game.Return = {15, Pawn, 1};
    g.Receive("C(board)");
    EXPECT_EQ(g.port.receivedRecords, 0) << "it may yet turn out bad";
    EXPECT_EQ(g.game.lstHistory.size(), 1U);
    g.Receive(NewBoard());
    EXPECT_EQ(g.port.receivedRecords, 1);
    EXPECT_EQ(g.port.caption, "Tarveth");
    ToolsGame fresh;
    fresh.Settle();
    EXPECT_EQ(g.game, fresh.game) << "nothing is left of the game before";
}

TEST(ReceiveBoard, DropsClicksAndSquaresMeanwhile) {
    ToolsGame g;
    g.Receive("C(board)");
    g.Click("4E");
    EXPECT_EQ(g.game.GameState, kGetBoard);
    g.Receive("M(4,5)");
    Strings rest = Without(NewBoard(), "C(board)");
    rest.insert(rest.end() - 1, "M(4,5)");
    g.Receive(Join(rest));
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_TRUE(g.port.sent.empty());
}

TEST(ReceiveBoard, ASquareOfTheOldBoardIsNotPlayedOnTheNew) {
    ToolsGame g;
    g.Parse("M(4,5)M(4,4)");
    g.main.Pass();
    ASSERT_TRUE(g.net.RemoteMove);
    g.Receive(Join(NewBoard()));
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.On("4D"), 0);
    g.Click("4E");
    EXPECT_EQ(g.port.sent, Strings{"M(4, 5)"}) << "the next click is the local player's";
}

TEST(ReceiveBoard, EndsWhatWasBegunOnTheBoardBefore) {
    ToolsGame g("turn B | BM 4D | RM 4E | RM 8H | jail BP");
    g.Move("4D", "4E");
    ASSERT_EQ(g.game.GameState, kReturnPiece);
    g.Receive(NewBoard());
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Return.ReturnKind, 0);
    EXPECT_FALSE(g.main.HasWork());
}

TEST(ReceiveBoard, AfterAGameThatIsOverPlayGoesOn) {
    ToolsGame g("turn B | BM 4D | jail RM RM RM");
    g.Settle();
    ASSERT_EQ(g.game.GameState, kGameOver);
    g.Receive(NewBoard());
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.VictoryText, "");
    EXPECT_EQ(g.port.gameEndSounds.size(), 1U);
}

TEST(ReceiveBoard, AnotherOneBeginsAnew) {
    ToolsGame g;
    g.Receive("C(board)J(1,2,3,-4,-5,4,5,1,1,3,3)T(2)");
    g.Receive(NewBoard());
    ExpectSameBoard(g.game, ToolsGame().game);
}

TEST(ReceiveBoard, ValuesThatCannotBeGiveANoticeEachAndChangeNothing) {
    for (const char* text : {"P(27,1,1,1,5,0,0)",
                             "P(-1,1,1,1,5,0,0)",
                             "P(1,1,1,9,5,0,0)",
                             "P(1,1,1,1,-9,0,0)",
                             "P(1,1,1,1,5,0,65536)",
                             "P(1,1,1,1,5,0)",
                             "P()",
                             "P(x,1,1,1,5,0,0)",
                             "P(99999999999,1,1,1,5,0,0)",
                             "J(27,2,3,-4,-5,4,5,1,1,3,3)",
                             "J(-1,2,3,-4,-5,4,5,1,1,3,3)",
                             "J(32767,2,3,-4,-5,4,5,1,1,3,3)",
                             "J(1,2,3,-4,-5,4,5,1,1,3)",
                             "J(1,x,3,-4,-5,4,5,1,1,3,3)",
                             "J(1,2,3,-4,-5,4,5,1,1,3,99999)",
                             "J(1,2,3,-10,-5,4,5,1,1,3,3)",
                             "T(0)",
                             "T(3)",
                             "T()",
                             "T(Red)",
                             "S(0,1,1,3,0,3,0)",
                             "S(27,1,1,3,0,3,0)",
                             "S(1,1,1,3,0,3)",
                             "S(1,1,1,3,0,3,70000)"}) {
        ToolsGame g;
        Strings board = NewBoard();
        board.insert(board.end() - 1, text);
        g.Receive(board);
        EXPECT_EQ(g.port.notices, Strings{kNotUnderstood}) << text;
        ExpectSameBoard(g.game, ToolsGame().game);
    }
}

TEST(ReceiveBoard, OneThatCannotBePlayedIsIgnoredAndTheGameGoesOn) {
    for (const char* text :
         {"P(1,1,1,5,8,0,0)", "P(1,1,1,0,0,0,0)", "P(1,1,1,-4,8,0,0)", "S(1,3,1,3,0,3,0)", "S(1,1,0,3,0,3,0)",
          "J(1,2,3,-4,-5,4,5,1,1,3,3)", "J(2,1,1,-4,-8,4,8,3,0,3,0)"}) {
        ToolsGame g;
        g.Move("4E", "4D");
        const Game before = g.game;
        Strings board = NewBoard();
        board.insert(board.end() - 1, text);
        g.Receive(board);
        EXPECT_EQ(g.game, before) << text;
        EXPECT_EQ(g.port.receivedRecords, 0) << text;
        ASSERT_EQ(g.port.notices.size(), 1U) << text;
        EXPECT_TRUE(
            g.port.notices[0].starts_with("The opponent's program sent a board that cannot be played: "))
            << g.port.notices[0];
        EXPECT_TRUE(g.port.notices[0].ends_with("; it is ignored.")) << g.port.notices[0];
        EXPECT_EQ(g.port.message, "") << "no board is waited for any more";
    }
}

TEST(ReceiveBoard, AnIgnoredOneLeavesAGameThatIsOverAsItIs) {
    ToolsGame g("turn B | BM 4D | jail RM RM RM");
    g.Settle();
    g.Receive("C(board)P(4,1,2,1,1,0,0)P(5,1,2,1,1,0,0)C(play)");
    EXPECT_EQ(g.port.notices.size(), 1U);
    EXPECT_EQ(g.game.GameState, kGameOver);
    EXPECT_EQ(g.port.gameEndSounds.size(), 1U);
}

TEST(ReceiveBoard, GivesWayToANewGameHereWhichTheOpponentGets) {
    ToolsGame g;
    Strings board = NewBoard();
    board.insert(board.begin() + 1, "T(2)");
    g.Receive(Strings(board.begin(), board.begin() + 10));
    g.main.RunCommand([&] { g.main.NewGame(); });
    g.Settle();
    EXPECT_EQ(g.port.boardsSent, 1);
    g.tools.SendBoard();
    const Game begun = g.game;
    g.Receive(Strings(board.begin() + 10, board.end()));
    EXPECT_EQ(g.game, begun);
    EXPECT_TRUE(g.port.notices.empty());
    g.Receive(board);
    EXPECT_EQ(g.game.GameState, kPickPiece) << "the next board is taken again";
    EXPECT_EQ(g.port.receivedRecords, 1);
}

} // namespace
} // namespace tarveth::test
