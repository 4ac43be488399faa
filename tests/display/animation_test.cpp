// The animation of a move, tick by tick.
#include "engine/rules/turns.h"
#include "tests/Dice.h"
#include "tests/TestGame.h"
#include "tests/display/DisplayGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

// Counts the ticks of the timer until the piece has arrived.
int CountTicks(DisplayGame& g, int piece, Square to) {
    int ticks = 0;
    g.display.onYield = [&] {
        g.board.AnimationTick();
        ++ticks;
    };
    g.board.AnimateMove(piece, to);
    return ticks;
}

// A lone piece, index 8, in the middle of the board.
struct LonePawn : DisplayGame {
    explicit LonePawn(int pictureSize = 32) : DisplayGame(pictureSize) {
        SetPosition(game, "turn B|BP 4D");
        board.RedrawBoard();
    }
    PieceRecord& Piece() { return game.Piece(8); }
};

// Gives what picBoard must show: the board without the moving piece, and that piece drawn once, on top.
PixelBuffer PlainPicture(const DisplayGame& g) {
    Game game = g.game;
    PiecePictures pictures = g.pictures;
    RecordingPort person;
    RecordingDisplay display;
    BoardDisplay board(game, g.settings, pictures, person, display);
    board.RedrawBoard();
    if (const int index = game.AnimatedPiece; index != 0) {
        const int s = pictures.SquareSize;
        const PieceRecord& piece = game.Piece(index);
        const auto pixel = [s](Currency number) {
            return static_cast<std::int16_t>((number.Raw() - Currency::kScale) * s / Currency::kScale);
        };
        board.DrawPieceAt(index, pixel(piece.X), pixel(piece.Y));
    }
    return board.picBoard.Pixels;
}

void PlayRandomly(DisplayGame& g, std::uint64_t seed, int turns) {
    Dice dice(seed);
    for (int i = 0; i < turns && g.game.GameState == kPickPiece; ++i) {
        const CompleteTurn turn = dice.OneOf(ListTurns(g.game));
        g.port.returnChoice = turn.returnKind == Officer ? Officer : Pawn;
        g.Click(turn.from);
        g.Click(turn.to);
        if (turn.returnKind != 0)
            g.Click(turn.returnTo);
    }
}

} // namespace

// The first of the 4 n quarter steps of n squares is taken before the timer starts, the others by its ticks.
TEST(Animation, AStraightMoveOfNSquaresTakes4NQuarterSteps) {
    for (const int n : {1, 2, 3})
        for (const Square way : {Square{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
            LonePawn g;
            const Square to{4 + n * way.column, 4 + n * way.row};
            EXPECT_EQ(1 + CountTicks(g, 8, to), 4 * n) << to.column << ' ' << to.row;
            EXPECT_TRUE(g.Piece().StandsOn(to));
        }
}

TEST(Animation, ADiagonalMoveOfNSquaresTakes4NQuarterStepsToo) {
    for (const int n : {1, 2, 3})
        for (const Square way : {Square{1, 1}, {1, -1}, {-1, 1}, {-1, -1}}) {
            LonePawn g;
            const Square to{4 + n * way.column, 4 + n * way.row};
            EXPECT_EQ(1 + CountTicks(g, 8, to), 4 * n) << to.column << ' ' << to.row;
            EXPECT_TRUE(g.Piece().StandsOn(to));
        }
}

TEST(Animation, ThePieceAdvancesAQuarterOfASquareATick) {
    LonePawn g;
    std::vector<double> columns;
    g.display.onYield = [&] {
        columns.push_back(g.Piece().X.ToDouble());
        g.board.AnimationTick();
    };
    g.board.AnimateMove(8, {6, 4});
    EXPECT_EQ(columns, (std::vector<double>{4.25, 4.5, 4.75, 5, 5.25, 5.5, 5.75}));
    EXPECT_TRUE(g.Piece().StandsOn({6, 4}));
}

TEST(Animation, AMoveAlongOneAxisKeepsTheOtherStepAtZero) {
    LonePawn g;
    g.display.onYield = [&] {
        EXPECT_EQ(g.Piece().StepX, Currency{});
        EXPECT_EQ(g.Piece().StepY, Currency::FromRaw(-2500));
        EXPECT_EQ(g.Piece().X, 4);
        g.board.AnimationTick();
    };
    g.board.AnimateMove(8, {4, 2});
    EXPECT_TRUE(g.Piece().StandsOn({4, 2}));
}

TEST(Animation, TheTargetIsKeptWithThePiece) {
    LonePawn g;
    g.board.AnimateMove(8, {6, 2});
    EXPECT_EQ(g.Piece().TargetX, 6);
    EXPECT_EQ(g.Piece().TargetY, 2);
}

TEST(Animation, TheTimerRunsEvery10MillisecondsAndStopsOnArrival) {
    LonePawn g;
    g.board.AnimateMove(8, {6, 4});
    EXPECT_EQ(g.display.timerIntervals, (std::vector<int>{10, 0}));
}

TEST(Animation, TheFlagsAreSetWhileThePieceMovesAndClearedAfterwards) {
    LonePawn g;
    g.display.onYield = [&] {
        EXPECT_TRUE(g.game.Animating);
        EXPECT_EQ(g.game.AnimatedPiece, 8);
        g.board.AnimationTick();
    };
    g.board.AnimateMove(8, {5, 5});
    EXPECT_FALSE(g.game.Animating);
    EXPECT_EQ(g.game.AnimatedPiece, 0);
}

TEST(Animation, EveryTickIsPresented) {
    LonePawn g;
    g.display.onYield = [&] {
        const int before = g.display.refreshes;
        g.board.AnimationTick();
        EXPECT_EQ(g.display.refreshes, before + 1);
        EXPECT_TRUE(g.board.picDisplay.Pixels == g.board.picBoard.Pixels);
    };
    g.board.AnimateMove(8, {6, 4});
}

TEST(Animation, ThePieceIsNeverDrawnTwiceAndTheBackgroundComesBack) {
    for (const int size : {32, 48}) {
        DisplayGame g(size); // over a crowded board
        g.display.onYield = [&] {
            g.board.AnimationTick();
            ASSERT_TRUE(g.game.AnimatedPiece == 0 || g.board.picBoard.Pixels == PlainPicture(g));
        };
        for (const Square to : {Square{7, 4}, {1, 1}, {8, 1}, {8, 8}, {4, 4}, {1, 1}})
            g.board.AnimateMove(1, to);
        g.board.AnimateMove(26, {1, 8});
        g.board.RedrawBoard();
        EXPECT_TRUE(g.board.picBoard.Pixels == PlainPicture(g));
    }
}

TEST(Animation, BeforeTheFirstTickTheMovingPieceIsOffTheBoard) {
    DisplayGame empty;
    SetPosition(empty.game, "turn B");
    empty.board.RedrawBoard();
    LonePawn g;
    int yields = 0;
    g.display.onYield = [&] {
        if (yields++ == 0) {
            EXPECT_TRUE(g.board.picBoard.Pixels == empty.board.picBoard.Pixels);
        }
        g.board.AnimationTick();
    };
    g.board.AnimateMove(8, {5, 4});
    EXPECT_FALSE(g.board.picBoard.Pixels == empty.board.picBoard.Pixels);
}

TEST(Animation, ARedrawInTheMiddleOfAMoveDoesNoHarm) {
    DisplayGame g;
    g.display.onYield = [&] {
        g.board.RedrawBoard();
        g.board.AnimationTick();
        ASSERT_TRUE(g.game.AnimatedPiece == 0 || g.board.picBoard.Pixels == PlainPicture(g));
    };
    g.board.AnimateMove(1, {1, 5});
}

TEST(Animation, APictureLargerThanASquareLeavesNoTrail) {
    LonePawn g;
    g.pictures.picBlue[Pawn] = PixelBuffer(50, 70, Rgb(1, 2, 3));
    g.display.onYield = [&] {
        g.board.AnimationTick();
        ASSERT_TRUE(g.game.AnimatedPiece == 0 || g.board.picBoard.Pixels == PlainPicture(g));
    };
    g.board.AnimateMove(8, {8, 8});
    g.board.AnimateMove(8, {1, 1});
}

TEST(Animation, FinishAnimationBringsThePieceThereAtOnce) {
    LonePawn g;
    int yields = 0;
    g.display.onYield = [&] {
        ++yields;
        g.board.FinishAnimation();
    };
    g.board.AnimateMove(8, {1, 1});
    EXPECT_EQ(yields, 1);
    EXPECT_TRUE(g.Piece().StandsOn({1, 1}));
    EXPECT_EQ(g.display.timerIntervals.back(), 0);
    EXPECT_TRUE(g.board.picBoard.Pixels == PlainPicture(g));
}

TEST(Animation, FinishAnimationWithoutOneDoesNothing) {
    LonePawn g;
    const Game before = g.game;
    g.board.FinishAnimation();
    EXPECT_TRUE(g.game == before);
    EXPECT_TRUE(g.display.timerIntervals.empty());
}

TEST(Animation, ATickWithoutAMovingPieceDoesNothing) {
    LonePawn g;
    const int before = g.display.refreshes;
    g.board.AnimationTick();
    EXPECT_EQ(g.display.refreshes, before);
    EXPECT_TRUE(g.Piece().StandsOn({4, 4}));
}

TEST(Animation, ClicksWhileAPieceMovesAreIgnored) {
    DisplayGame g;
    g.settings.AnimateMoves = -1;
    g.Click({4, 5}); // a Blue Pawn
    int clicks = 0;
    g.display.onYield = [&] {
        g.Click({6, 5});
        ++clicks;
        EXPECT_EQ(g.game.CurPiece, 12);
        EXPECT_EQ(g.game.GameState, kPlacePiece);
        g.board.AnimationTick();
    };
    g.Click({3, 5});
    EXPECT_GT(clicks, 0);
    EXPECT_TRUE(g.game.Piece(12).StandsOn({3, 5}));
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.ClickX, 0);
}

TEST(Animation, ACommandInTheMiddleOfAMoveWaitsForItsEnd) {
    DisplayGame g;
    g.settings.AnimateMoves = -1;
    g.Click({4, 5});
    bool arrived = false;
    g.display.onYield = [&] {
        g.main.RunCommand([&] { arrived = g.game.Piece(12).StandsOn({3, 5}) && !g.game.Animating; });
    };
    g.Click({3, 5});
    EXPECT_TRUE(arrived);
}

TEST(Animation, WithAnimateMovesOffItIsNeverStarted) {
    DisplayGame g;
    g.display.onYield = [] { FAIL(); };
    PlayRandomly(g, 7, 60);
    EXPECT_TRUE(g.display.timerIntervals.empty());
}

TEST(Animation, WholeGamesEndAlikeWithAndWithoutIt) {
    for (const std::uint64_t seed : {11U, 12U, 13U}) {
        DisplayGame still(32);
        DisplayGame moving(32);
        moving.settings.AnimateMoves = -1;
        PlayRandomly(still, seed, 80);
        PlayRandomly(moving, seed, 80);
        EXPECT_FALSE(moving.display.timerIntervals.empty());
        EXPECT_EQ(still.game.lstHistory, moving.game.lstHistory);
        for (PieceRecord& piece : moving.game.PieceTable)
            piece.TargetX = piece.TargetY = 0;
        for (PieceRecord& piece : moving.game.JailTable)
            piece.TargetX = piece.TargetY = 0;
        EXPECT_TRUE(still.game == moving.game);
        EXPECT_TRUE(still.board.picDisplay.Pixels == moving.board.picDisplay.Pixels);
        EXPECT_TRUE(still.board.picDisplayJail.Pixels == moving.board.picDisplayJail.Pixels);
    }
}

} // namespace tarveth::test
