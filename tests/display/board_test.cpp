// RedrawBoard and what it presents.
#include "tests/TestGame.h"
#include "tests/display/DisplayGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

constexpr Pixel kBlack = Rgb(0, 0, 0);
constexpr Pixel kWhite = Rgb(255, 255, 255);
constexpr Pixel kInk = Rgb(10, 20, 30);

PixelBuffer Part(const PixelBuffer& picture, int left, int top, int width, int height) {
    PixelBuffer part(width, height);
    part.CopyFrom(picture, -left, -top);
    return part;
}

// Pictures of one colour each: Blue's kinds 1, 2, 3 and Red's 101, 102, 103, as the amount of red.
void TakePlainPictures(DisplayGame& g, int blueMaster, int others) {
    for (int kind = Master; kind <= Pawn; ++kind) {
        const auto i = static_cast<std::size_t>(kind);
        const int edge = kind == Master ? blueMaster : others;
        g.pictures.picBlue[i] = PixelBuffer(edge, edge, Rgb(kind, 77, 77));
        g.pictures.picRed[i] = PixelBuffer(others, others, Rgb(100 + kind, 77, 77));
    }
    g.pictures.SquareSize = blueMaster;
}

bool HasPiece(const DisplayGame& g, Square square) {
    const int s = g.pictures.SquareSize;
    const Pixel ground = (square.column + square.row) % 2 == 0 ? kBlack : kWhite;
    PixelBuffer empty(s, s, ground);
    if (square == Square{1, 1})
        empty.At(1, 1) = kKeyGreen;
    return Part(g.board.picBoard.Pixels, (square.column - 1) * s, (square.row - 1) * s, s, s) != empty;
}

} // namespace

TEST(Board, WithSquaresOf32ItMeasures256) {
    const DisplayGame g(32);
    EXPECT_EQ(g.board.picBoard.Pixels.Width(), 256);
    EXPECT_EQ(g.board.picBoard.Pixels.Height(), 256);
    EXPECT_EQ(g.board.picBoard.Width(), 256 * 15);
    EXPECT_EQ(g.board.picBoard.Height(), 256 * 15);
}

TEST(Board, SquaresAre32BeforePicturesAreLoaded) {
    Game game;
    Settings settings;
    PiecePictures pictures;
    RecordingPort person;
    RecordingDisplay display;
    BoardDisplay board(game, settings, pictures, person, display);
    CreatePieces(game);
    PlacePieces(game, kImperialBoard);
    board.RedrawBoard();
    EXPECT_EQ(board.picBoard.Pixels.Width(), 256);
}

TEST(Board, ABlueMasterOf40MakesABoardOf320AndJailSquaresOf40) {
    DisplayGame g;
    TakePlainPictures(g, 40, 32);
    SetPosition(g.game, "turn B|jail BM BP");
    g.board.RedrawBoard();
    EXPECT_EQ(g.board.picBoard.Pixels.Width(), 320);
    EXPECT_EQ(g.board.picBoard.Pixels.Height(), 320);
    EXPECT_EQ(g.board.picJail.Pixels.Width(), 320);
    EXPECT_EQ(g.board.picJail.Pixels.Height(), 120);
    EXPECT_EQ(RedOf(g.board.picJail.Pixels.At(39, 39)), Master);
    EXPECT_EQ(RedOf(g.board.picJail.Pixels.At(40, 0)), Pawn);
}

TEST(Board, PicturesAreNeverScaledToTheSquare) {
    DisplayGame g;
    TakePlainPictures(g, 40, 32);
    SetPosition(g.game, "turn B|RO 2A");
    g.board.RedrawBoard();
    EXPECT_EQ(g.board.picBoard.Pixels.At(40 + 31, 31), Rgb(102, 77, 77));
    EXPECT_EQ(g.board.picBoard.Pixels.At(40 + 32, 31), kWhite);
    EXPECT_EQ(g.board.picBoard.Pixels.At(40 + 31, 32), kWhite);
}

TEST(Board, ASquareIsBlackWhereColumnAndRowAddUpToAnEvenNumber) {
    DisplayGame g;
    g.settings.BoardBlack = {1, 2, 3};
    g.settings.BoardWhite = {201, 202, 203};
    SetPosition(g.game, "turn B");
    g.board.RedrawBoard();
    PixelBuffer expected(256, 256);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            expected.At(x, y) = (x / 32 + y / 32) % 2 == 0 ? Rgb(1, 2, 3) : Rgb(201, 202, 203);
    expected.At(1, 1) = kKeyGreen;
    EXPECT_TRUE(g.board.picBoard.Pixels == expected);
}

TEST(Board, ThePixelAt1And1HasTheKeyColourUnlessAPieceCoversIt) {
    DisplayGame g;
    EXPECT_EQ(g.board.picBoard.Pixels.At(1, 1), kKeyGreen);
    EXPECT_EQ(g.board.picBoard.Pixels.At(0, 0), kBlack);
    TakePlainPictures(g, 32, 32);
    SetPosition(g.game, "turn B|RM 1A");
    g.board.RedrawBoard();
    EXPECT_EQ(g.board.picBoard.Pixels.At(1, 1), Rgb(101, 77, 77));
}

TEST(Board, ColoursOutsideTheirRangeCountAsItsNearestEnd) {
    DisplayGame g;
    g.settings.BoardBlack = {-5, 300, 32767};
    g.board.RedrawBoard();
    EXPECT_EQ(g.board.picBoard.Pixels.At(0, 0), Rgb(0, 255, 255));
}

TEST(Board, EveryPieceStandsOnItsOwnSquareAndNowhereElse) {
    for (const std::int16_t variant : {kImperialBoard, kDraumeCrownBoard}) {
        const DisplayGame g(32, variant);
        for (int column = 1; column <= kBoardSize; ++column)
            for (int row = 1; row <= kBoardSize; ++row)
                EXPECT_EQ(HasPiece(g, {column, row}), PieceOn(g.game, {column, row}) != 0)
                    << column << ' ' << row;
    }
}

TEST(Board, SidesAndKindsHaveTheirOwnPictures) {
    DisplayGame g;
    TakePlainPictures(g, 32, 32);
    SetPosition(g.game, "turn B|BM 1B|BO 2B|BP 3B|RM 4B|RO 5B|RP 6B");
    g.board.RedrawBoard();
    for (const int column : {1, 2, 3, 4, 5, 6})
        EXPECT_EQ(RedOf(g.board.picBoard.Pixels.At(column * 32 - 16, 48)),
                  column <= 3 ? column : 97 + column);
}

TEST(Board, AnySideButBlueIsDrawnRed) {
    DisplayGame g;
    TakePlainPictures(g, 32, 32);
    SetPosition(g.game, "turn B|BM 1B");
    g.game.Piece(1).Side = 0;
    g.board.RedrawBoard();
    EXPECT_EQ(RedOf(g.board.picBoard.Pixels.At(16, 48)), 101);
}

TEST(Board, AKindThatIsNoneIsNotDrawn) {
    for (const std::int16_t kind : {std::int16_t{0}, std::int16_t{4}, std::int16_t{-1}}) {
        DisplayGame g;
        SetPosition(g.game, "turn B|BM 1B|jail BO");
        g.game.Piece(1).Kind = kind;
        g.game.JailTable[1].Kind = kind;
        g.board.RedrawBoard();
        EXPECT_FALSE(HasPiece(g, {1, 2}));
        EXPECT_EQ(g.board.picJail.Pixels, PixelBuffer(256, 96, g.board.picJail.BackColor));
    }
}

TEST(Board, APieceInTheJailIsNotOnTheBoard) {
    DisplayGame g;
    SetPosition(g.game, "turn B|jail BM");
    g.board.RedrawBoard();
    for (int column = 1; column <= kBoardSize; ++column)
        for (int row = 1; row <= kBoardSize; ++row)
            EXPECT_FALSE(HasPiece(g, {column, row}));
}

TEST(Board, TheLiftedPieceIsAbsentUntilItIsPutDown) {
    DisplayGame g;
    const Square square{4, 8}; // piece 1
    g.game.AnimatedPiece = 1;
    g.board.RedrawBoard();
    EXPECT_FALSE(HasPiece(g, square));
    EXPECT_TRUE(HasPiece(g, {5, 8}));
    g.game.AnimatedPiece = 0;
    g.board.RedrawBoard();
    EXPECT_TRUE(HasPiece(g, square));
}

TEST(Board, ALaterPieceCoversAnEarlierOneWhereTheyOverlap) {
    DisplayGame g;
    TakePlainPictures(g, 32, 40); // Red's pictures reach 8 pixels over their squares
    SetPosition(g.game, "turn B|RM 5B|RO 4B");
    g.board.RedrawBoard();
    EXPECT_EQ(RedOf(g.board.picBoard.Pixels.At(4 * 32 + 7, 40)), 102); // the Officer reaches over the Master
    EXPECT_EQ(RedOf(g.board.picBoard.Pixels.At(4 * 32 + 8, 40)), 101);
    SetPosition(g.game, "turn B|BM 5B|RO 4B");
    g.board.RedrawBoard();
    EXPECT_EQ(RedOf(g.board.picBoard.Pixels.At(4 * 32 + 7, 40)), 102);
    SetPosition(g.game, "turn B|RM 4B|RO 5B");
    g.board.RedrawBoard();
    EXPECT_EQ(RedOf(g.board.picBoard.Pixels.At(4 * 32 + 7, 40)), 102);
}

TEST(Board, TheJailLies120TwipsBelowTheBoardAtItsLeft) {
    DisplayGame g;
    g.board.picBoard.Left = 300;
    g.board.picBoard.Top = 450;
    g.board.RedrawBoard();
    EXPECT_EQ(g.board.picJail.Top, 450 + 256 * 15 + 120);
    EXPECT_EQ(g.board.picJail.Left, 300);
    EXPECT_EQ(g.board.picJail.Width(), g.board.picBoard.Width());
    EXPECT_EQ(g.board.picJail.Height(), 32 * kTwipsPerPixelX * 3);
}

TEST(Board, TheNinthCapturedPieceStartsTheSecondRowOfTheJail) {
    DisplayGame g;
    TakePlainPictures(g, 32, 32);
    SetPosition(g.game, "turn B|jail BP BP BP BP BP BP RP RO RM BM");
    g.board.RedrawBoard();
    const PixelBuffer& jail = g.board.picJail.Pixels;
    EXPECT_EQ(RedOf(jail.At(7 * 32 + 16, 16)), 102); // the eighth
    EXPECT_EQ(RedOf(jail.At(16, 32 + 16)), 101);     // the ninth
    EXPECT_EQ(RedOf(jail.At(32 + 16, 32 + 16)), 1);  // the tenth
    EXPECT_EQ(jail.At(64 + 16, 32 + 16), g.board.picJail.BackColor);
}

TEST(Board, PiecesThatLeaveTheJailLeaveNoPictureThere) {
    DisplayGame g;
    SetPosition(g.game, "turn B|jail BP RO");
    g.board.RedrawBoard();
    g.game.JailTable.resize(1);
    g.board.RedrawBoard();
    EXPECT_EQ(g.board.picJail.Pixels, PixelBuffer(256, 96, g.board.picJail.BackColor));
}

TEST(Board, DrawPieceAtTakesAnyPixelPosition) {
    DisplayGame g;
    TakePlainPictures(g, 32, 32);
    SetPosition(g.game, "turn B");
    g.board.RedrawBoard();
    g.board.DrawPieceAt(1, 240, -16);
    EXPECT_EQ(RedOf(g.board.picBoard.Pixels.At(255, 15)), Master);
    EXPECT_NE(RedOf(g.board.picBoard.Pixels.At(239, 0)), Master);
    EXPECT_NE(RedOf(g.board.picBoard.Pixels.At(240, 16)), Master);
}

TEST(Board, RedrawingPresentsBoardAndJailOnce) {
    DisplayGame g;
    const int before = g.display.refreshes;
    g.board.RedrawBoard();
    EXPECT_EQ(g.display.refreshes, before + 1);
    EXPECT_TRUE(g.board.picDisplay.Pixels == g.board.picBoard.Pixels);
    EXPECT_TRUE(g.board.picDisplayJail.Pixels == g.board.picJail.Pixels);
}

TEST(Board, TheVisibleBoardHasItsOwnSize) {
    DisplayGame g;
    g.board.SetDisplaySize(512, 192);
    EXPECT_EQ(g.board.picDisplay.Pixels.Width(), 512);
    EXPECT_EQ(g.board.picDisplayJail.Pixels.Height(), 192);
    EXPECT_EQ(g.board.picBoard.Pixels.Width(), 256);
    for (int y = 0; y < 512; ++y)
        for (int x = 0; x < 512; ++x)
            ASSERT_EQ(g.board.picDisplay.Pixels.At(x, y), g.board.picBoard.Pixels.At(x / 2, y / 2));
}

TEST(Board, TheMarkerLiesOverTheSquareOfThePieceLastPicked) {
    DisplayGame g;
    g.board.SetDisplaySize(384, 144);
    g.Click({4, 5});
    g.board.ShowMarker(true);
    EXPECT_TRUE(g.board.Shape1.Visible);
    EXPECT_EQ(g.board.Shape1.Left, 3 * 48);
    EXPECT_EQ(g.board.Shape1.Top, 4 * 48);
    EXPECT_EQ(g.board.Shape1.Width, 48);
    EXPECT_EQ(g.board.Shape1.Height, 48);
    g.board.SetDisplaySize(512, 192);
    EXPECT_EQ(g.board.Shape1.Left, 3 * 64);
    g.board.ShowMarker(false);
    EXPECT_FALSE(g.board.Shape1.Visible);
}

TEST(Board, RedrawingLeavesTheGameAlone) {
    DisplayGame g;
    const Game before = g.game;
    g.board.RedrawBoard();
    EXPECT_TRUE(g.game == before);
}

TEST(Board, ARedrawnBoardForgetsWhatWasPaintedOnIt) {
    DisplayGame g;
    const PixelBuffer clean = g.board.picBoard.Pixels;
    g.board.picBoard.Pixels.Fill(kInk);
    g.board.RedrawBoard();
    EXPECT_TRUE(g.board.picBoard.Pixels == clean);
}

} // namespace tarveth::test
