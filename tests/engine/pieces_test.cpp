// The pieces, the layouts, the direction tables, and what a new game asks of the windows.
#include "engine/rules/captures.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tarveth::test {
namespace {

const std::string kHowToBegin =
    "To begin play: click on the piece you'd like to move, then click on the location where you'd like to "
    "place the selected piece. To deselect a selected piece, click it again.";

struct Standing {
    int index;
    int column;
    int row;
};

const std::vector<Standing> kImperial = {
    {1, 4, 8},  {2, 5, 8},  {3, 6, 8},  {4, 4, 7},  {5, 5, 7},  {6, 6, 7},  {7, 5, 6},
    {8, 3, 6},  {9, 4, 6},  {10, 6, 6}, {11, 7, 6}, {12, 4, 5}, {13, 6, 5}, {14, 3, 1},
    {15, 4, 1}, {16, 5, 1}, {17, 3, 2}, {18, 4, 2}, {19, 5, 2}, {20, 4, 3}, {21, 2, 3},
    {22, 3, 3}, {23, 5, 3}, {24, 6, 3}, {25, 3, 4}, {26, 5, 4},
};

const std::vector<Standing> kDraumeCrown = {
    {1, 3, 8},  {2, 5, 8},  {3, 7, 8},  {4, 4, 8},  {5, 6, 8},  {6, 5, 7},  {7, 5, 6},
    {8, 3, 7},  {9, 4, 7},  {10, 6, 7}, {11, 7, 7}, {12, 2, 6}, {13, 8, 6}, {14, 2, 1},
    {15, 4, 1}, {16, 6, 1}, {17, 3, 1}, {18, 5, 1}, {19, 4, 2}, {20, 4, 3}, {21, 2, 2},
    {22, 3, 2}, {23, 5, 2}, {24, 6, 2}, {25, 1, 3}, {26, 7, 3},
};

Game NewBoard(std::int16_t variant) {
    Game game;
    CreatePieces(game);
    PlacePieces(game, variant);
    return game;
}

void ExpectLayout(const Game& game, const std::vector<Standing>& layout) {
    ASSERT_EQ(game.PieceTable.size(), 27U);
    ASSERT_EQ(layout.size(), 26U);
    for (const Standing& piece : layout) {
        EXPECT_EQ(game.Piece(piece.index).X, piece.column) << "piece " << piece.index;
        EXPECT_EQ(game.Piece(piece.index).Y, piece.row) << "piece " << piece.index;
    }
}

TEST(Pieces, TheImperialBoardStandsAsDrawn) {
    ExpectLayout(NewBoard(kImperialBoard), kImperial);
}

TEST(Pieces, TheDraumeCrownBoardStandsAsDrawn) {
    ExpectLayout(NewBoard(kDraumeCrownBoard), kDraumeCrown);
}

TEST(Pieces, AnyVariantButOneIsTheDraumeCrown) {
    for (const int variant : {0, 3, -1, 32'767})
        ExpectLayout(NewBoard(static_cast<std::int16_t>(variant)), kDraumeCrown);
}

TEST(Pieces, NoPieceStandsOnAnotherInANewGame) {
    for (const std::int16_t variant : {kImperialBoard, kDraumeCrownBoard}) {
        TestGame g;
        g.settings.BoardVariant = variant;
        g.main.NewGame();
        std::set<std::pair<int, int>> squares;
        for (int i = 1; i <= kPieces; ++i) {
            const Square square{g.game.Piece(i).X.ToInt16(), g.game.Piece(i).Y.ToInt16()};
            EXPECT_TRUE(square.OnBoard());
            squares.insert({square.column, square.row});
        }
        EXPECT_EQ(squares.size(), 26U);
    }
}

TEST(Pieces, BothLayoutsArePointSymmetric) {
    for (const std::int16_t variant : {kImperialBoard, kDraumeCrownBoard}) {
        const Game game = NewBoard(variant);
        for (int i = 1; i <= kPiecesPerSide; ++i) {
            const PieceRecord& blue = game.Piece(i);
            const int mirror = PieceOn(game, {9 - blue.X.ToInt16(), 9 - blue.Y.ToInt16()});
            ASSERT_GT(mirror, kPiecesPerSide);
            EXPECT_EQ(game.Piece(mirror).Kind, blue.Kind);
        }
    }
    EXPECT_EQ(PieceOn(NewBoard(kImperialBoard), {9 - 4, 9 - 8}), 16) << "Blue piece 1 mirrors 16, not 14";
}

TEST(Pieces, EachSideHasThreeMastersFourOfficersAndSixPawnsInThatOrder) {
    const Game game = NewBoard(kImperialBoard);
    for (int i = 1; i <= 13; ++i) {
        const int kind = i <= 3 ? 1 : i <= 7 ? 2 : 3;
        EXPECT_EQ(game.Piece(i).Kind, kind) << i;
        EXPECT_EQ(game.Piece(i + 13).Kind, kind) << i + 13;
        EXPECT_EQ(game.Piece(i).Side, Blue) << i;
        EXPECT_EQ(game.Piece(i + 13).Side, Red) << i + 13;
    }
}

TEST(Pieces, KindsHaveTheirLimits) {
    const Game game = NewBoard(kImperialBoard);
    for (int i = 1; i <= 26; ++i) {
        const PieceRecord& piece = game.Piece(i);
        const bool pawn = piece.Kind == Pawn;
        EXPECT_EQ(piece.MaxMove, piece.Kind == Master ? 3 : piece.Kind == Officer ? 2 : 1) << i;
        EXPECT_EQ(piece.MaxDiag, pawn ? 1 : 0) << i;
        EXPECT_EQ(piece.MaxCtlMove, piece.Kind == Officer ? 2 : 3) << i;
        EXPECT_EQ(piece.MaxCtlDiag, pawn ? 3 : 0) << i;
    }
}

TEST(Pieces, ElementZeroHoldsNoPiece) {
    const Game game = NewBoard(kImperialBoard);
    EXPECT_EQ(game.Piece(0), PieceRecord{});
    ASSERT_EQ(game.JailTable.size(), 1U);
    EXPECT_EQ(game.Jailed(0), PieceRecord{});
}

TEST(Pieces, CreatingThemSetsNoSquares) {
    Game game;
    CreatePieces(game);
    for (int i = 1; i <= 26; ++i) {
        EXPECT_EQ(game.Piece(i).X, 0);
        EXPECT_EQ(game.Piece(i).Y, 0);
        EXPECT_EQ(game.Piece(i).PrevX, 0);
        EXPECT_EQ(game.Piece(i).PrevY, 0);
    }
}

TEST(Pieces, CreatingThemEmptiesTheGame) {
    Game game = NewBoard(kImperialBoard);
    game.Turn = Red;
    game.GameState = kGameOver;
    game.CurPiece = 5;
    game.ClickX = game.ClickY = 3;
    game.Return = {20, Pawn, 1};
    game.VictoryText = "over";
    SendToJail(game, 4);
    CreatePieces(game);
    PlacePieces(game, kImperialBoard);
    EXPECT_EQ(game, NewBoard(kImperialBoard));
    EXPECT_EQ(game.Turn, NoSide);
    EXPECT_EQ(game.GameState, kReset);
}

TEST(Pieces, TheDirectionTableIsTheTableOfTheRules) {
    const Game game = NewBoard(kImperialBoard);
    const int expected[2][8][2] = {
        {{0, -2}, {1, -1}, {2, 0}, {1, 1}, {0, 2}, {-1, 1}, {-2, 0}, {-1, -1}},
        {{0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}},
    };
    for (std::size_t set = 1; set <= 2; ++set)
        for (std::size_t d = 1; d <= 8; ++d) {
            EXPECT_EQ(game.DirectionTable[set][d][1], expected[set - 1][d - 1][0]) << set << ' ' << d;
            EXPECT_EQ(game.DirectionTable[set][d][2], expected[set - 1][d - 1][1]) << set << ' ' << d;
        }
}

TEST(Pieces, SetPieceWritesSixFieldsAndNoSquare) {
    Game game = NewBoard(kImperialBoard);
    SetPiece(game, 8, Red, Master, 11, 12, 13, 14);
    const PieceRecord& piece = game.Piece(8);
    EXPECT_EQ(piece.Side, Red);
    EXPECT_EQ(piece.Kind, Master);
    EXPECT_EQ(piece.MaxMove, 11);
    EXPECT_EQ(piece.MaxDiag, 12);
    EXPECT_EQ(piece.MaxCtlMove, 13);
    EXPECT_EQ(piece.MaxCtlDiag, 14);
    EXPECT_TRUE(piece.StandsOn({3, 6}));
}

TEST(Pieces, SetPieceSquareWritesTheSquareAndTheOneBefore) {
    Game game = NewBoard(kImperialBoard);
    SetPieceSquare(game, 8, 2, 5, 3, 6);
    EXPECT_EQ(game.Piece(8).X, 2);
    EXPECT_EQ(game.Piece(8).Y, 5);
    EXPECT_EQ(game.Piece(8).PrevX, 3);
    EXPECT_EQ(game.Piece(8).PrevY, 6);
    EXPECT_EQ(game.Piece(8).Kind, Pawn);
}

TEST(Pieces, ASquareIsTakenByTheFirstPieceInOrder) {
    Game game = NewBoard(kImperialBoard);
    EXPECT_EQ(PieceOn(game, {4, 8}), 1);
    SetPieceSquare(game, 13, 4, 8, 0, 0);
    EXPECT_EQ(PieceOn(game, {4, 8}), 1);
    EXPECT_EQ(PieceOn(game, {1, 1}), 0);
    EXPECT_EQ(PieceOn(Game{}, {1, 1}), 0) << "an empty table";
}

TEST(Pieces, AJailedPieceStandsNowhere) {
    Game game = NewBoard(kImperialBoard);
    SendToJail(game, 1);
    EXPECT_EQ(PieceOn(game, {4, 8}), 0);
}

TEST(Pieces, JailedOnesAreCountedBySideAndKindAnUnknownKindAsAPawn) {
    TestGame g("turn B | jail BP BO BP RP BM");
    g.game.JailTable[1].Kind = 5;
    EXPECT_EQ(CountJailed(g.game, Blue, Pawn), 2);
    EXPECT_EQ(CountJailed(g.game, Blue, Officer), 1);
    EXPECT_EQ(CountJailed(g.game, Blue, Master), 1);
    EXPECT_EQ(CountJailed(g.game, Red, Pawn), 1);
    EXPECT_EQ(CountJailed(Game{}, Red, Pawn), 0);
}

TEST(Pieces, ValuesOutsideTheirRangeReadAsRedAndPawn) {
    EXPECT_EQ(SideName(Blue), "Blue");
    EXPECT_EQ(SideName(Red), "Red");
    EXPECT_EQ(SideName(NoSide), "Red");
    EXPECT_EQ(SideName(-1), "Red");
    EXPECT_EQ(KindName(Master), "Master");
    EXPECT_EQ(KindName(Officer), "Officer");
    EXPECT_EQ(KindName(Pawn), "Pawn");
    EXPECT_EQ(KindName(0), "Pawn");
    EXPECT_EQ(KindName(7), "Pawn");
}

TEST(NewGame, GivesBlueTheFirstTurnAndAsksForAPiece) {
    TestGame g;
    EXPECT_EQ(g.game.Turn, Blue);
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.port.prompt, "Pick piece");
    EXPECT_EQ(g.port.player, "Blue");
    EXPECT_FALSE(g.port.marker);
}

TEST(NewGame, AsksForItsStepsInOrder) {
    TestGame g;
    g.port.calls.clear();
    g.main.NewGame();
    EXPECT_EQ(g.port.calls, (std::vector<std::string>{"message ", "record", "history", "caption Tarveth",
                                                      "redraw", "player Blue", "message " + kHowToBegin}));
}

TEST(NewGame, SendsItsBoardWhenANetworkGameIsOn) {
    TestGame g;
    g.net.NetConnected = g.net.InGame = true;
    g.port.calls.clear();
    g.main.NewGame();
    EXPECT_EQ(g.port.boardsSent, 1);
    EXPECT_EQ(g.port.calls,
              (std::vector<std::string>{"message ", "record", "history", "caption Tarveth", "redraw",
                                        "player Blue", "board", "message " + kHowToBegin}));
}

TEST(NewGame, SendsNothingWhileOnlyConnected) {
    TestGame g;
    g.net.NetConnected = true;
    g.main.NewGame();
    EXPECT_EQ(g.port.boardsSent, 0);
}

TEST(NewGame, ClearsTheHistoryTheJailAndWhatTheOpponentSent) {
    TestGame g("turn B | BM 4D | RP 4E<4F | jail BP");
    g.game.lstHistory = {"B:BP 1A-1B"};
    TextQueue* const queues[] = {&g.net.RemoteX, &g.net.RemoteY, &g.net.ReturnPieceIndex, &g.net.ReturnSlot,
                                 &g.net.ReturnPieceName};
    for (TextQueue* queue : queues)
        queue->Append("4");
    g.net.RemoteMove = true;
    g.main.NewGame();
    EXPECT_TRUE(g.game.lstHistory.empty());
    EXPECT_EQ(g.game.JailTable.size(), 1U);
    for (const TextQueue* queue : queues)
        EXPECT_TRUE(queue->IsEmpty());
    EXPECT_FALSE(g.net.RemoteMove) << "the next click is the local player's";
    ExpectLayout(g.game, kImperial);
}

TEST(NewGame, TheHistoryIsStillWholeWhenTheLogIsWritten) {
    class LogPort : public RecordingPort {
    public:
        explicit LogPort(const Game& game) : game_(game) {}
        void BeginNewRecord() override { linesLogged = game_.lstHistory.size(); }
        std::size_t linesLogged = 0;

    private:
        const Game& game_;
    };
    Game game;
    NetGame net;
    const Settings settings;
    LogPort port(game);
    modMAIN main(game, net, settings, Ports{port, port, port, port, port});
    game.lstHistory = {"one", "two"};
    main.NewGame();
    EXPECT_EQ(port.linesLogged, 2U);
}

TEST(NewGame, AChangedVariantMovesNothingBeforeTheNextNewGame) {
    TestGame g;
    g.settings.BoardVariant = kDraumeCrownBoard;
    g.main.RunPasses();
    ExpectLayout(g.game, kImperial);
    g.main.NewGame();
    ExpectLayout(g.game, kDraumeCrown);
}

} // namespace
} // namespace tarveth::test
