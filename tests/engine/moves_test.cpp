// The rules of moving, each with a legal move and an illegal one beside it.
#include "engine/rules/moves.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <string>

namespace tarveth::test {
namespace {

const std::string kNoDiagonal = "Illegal move (diagonal not allowed).";
const std::string kBadDiagonal = "Illegal move (bad diagonal).";
const std::string kTooMany = "Illegal move (too many squares).";
const std::string kReflection = "Illegal move (Rule of Reflection).";
const std::string kCantCapture = "You can't capture that piece.";

// Selects a piece, tries to move it, and expects a refusal that leaves it selected and all pieces unchanged.
void ExpectRefused(TestGame& g, std::string_view from, std::string_view to, const std::string& text) {
    if (g.game.GameState == kPickPiece)
        g.Click(from);
    ASSERT_EQ(g.game.GameState, kPlacePiece) << from;
    const int selected = g.game.CurPiece;
    const auto pieces = g.game.PieceTable;
    const int beeps = g.port.beeps;
    g.Click(to);
    EXPECT_EQ(g.port.message, text) << from << '-' << to;
    EXPECT_EQ(g.port.beeps, beeps + 1);
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    EXPECT_EQ(g.game.CurPiece, selected);
    EXPECT_EQ(g.game.PieceTable, pieces);
    EXPECT_TRUE(g.game.lstHistory.empty());
}

void ExpectRefused(std::string_view position, std::string_view from, std::string_view to,
                   const std::string& text) {
    TestGame g(position);
    ExpectRefused(g, from, to, text);
}

// Selects a piece, moves it, and expects it on the square and the other side to move.
void ExpectMoved(TestGame& g, std::string_view from, std::string_view to) {
    const int index = g.On(from);
    const auto turn = g.game.Turn;
    g.Move(from, to);
    EXPECT_TRUE(g.game.Piece(index).StandsOn(SquareOf(to))) << from << '-' << to << ": " << g.port.message;
    EXPECT_EQ(g.game.Turn, Opponent(turn)) << from << '-' << to;
}

void ExpectMoved(std::string_view position, std::string_view from, std::string_view to) {
    TestGame g(position);
    ExpectMoved(g, from, to);
}

TEST(Moves, AMasterGoesThreeSquaresStraightNotFour) {
    for (const char* to : {"4A", "1D", "7D", "4G", "4C", "5D"})
        ExpectMoved("turn B | BM 4D", "4D", to);
    ExpectRefused("turn B | BM 4D", "4D", "8D", kTooMany);
    ExpectRefused("turn B | BM 4D", "4D", "4H", kTooMany);
}

TEST(Moves, AnOfficerGoesTwoSquaresStraightNotThree) {
    for (const char* to : {"4B", "2D", "6D", "4F", "4E"})
        ExpectMoved("turn B | BO 4D", "4D", to);
    ExpectRefused("turn B | BO 4D", "4D", "7D", kTooMany);
    ExpectRefused("turn B | BO 4D", "4D", "4A", kTooMany);
}

TEST(Moves, APawnGoesOneSquareStraightOrDiagonallyNotTwo) {
    for (const char* to : {"3C", "4C", "5C", "3D", "5D", "3E", "4E", "5E"})
        ExpectMoved("turn B | BP 4D", "4D", to);
    for (const char* to : {"2B", "4B", "6B", "2D", "6D", "2F", "4F", "6F"})
        ExpectRefused("turn B | BP 4D", "4D", to, kTooMany);
}

TEST(Moves, AControlledPawnGoesThreeSquaresStraightOrDiagonallyNotFour) {
    for (const char* to : {"1A", "4A", "1D", "7D", "1G", "4G", "7G"})
        ExpectMoved("turn B | BM 5C | RP 4D", "4D", to);
    ExpectMoved("turn B | BM 3C | RP 4D", "4D", "7A");
    ExpectRefused("turn B | BM 5C | RP 4D", "4D", "4H", kTooMany);
    ExpectRefused("turn B | BM 5C | RP 4D", "4D", "8H", kTooMany);
}

TEST(Moves, AControlledOfficerGoesTwoSquaresStraightAndNoDiagonal) {
    ExpectMoved("turn B | BM 5C | RO 4D", "4D", "4F");
    ExpectRefused("turn B | BM 5C | RO 4D", "4D", "4G", kTooMany);
    ExpectRefused("turn B | BM 5C | RO 4D", "4D", "3E", kNoDiagonal);
}

TEST(Moves, MastersAndOfficersAreRefusedAnyDiagonalBeforeAnyOtherTest) {
    for (const char* position : {"turn B | BM 4D<5E | BP 5E", "turn B | BO 4D<5E | BP 5E"}) {
        ExpectRefused(position, "4D", "5E", kNoDiagonal); // also taken, and where it came from
        ExpectRefused(position, "4D", "6F", kNoDiagonal); // also blocked
        ExpectRefused(position, "4D", "8H", kNoDiagonal); // also too far
        ExpectRefused(position, "4D", "5F", kNoDiagonal); // also no true diagonal
    }
}

TEST(Moves, AKnightlikeOffsetIsABadDiagonalNotTooManySquares) {
    for (const char* to : {"5F", "6E", "3B", "2C", "8B", "1H"})
        ExpectRefused("turn B | BP 4D", "4D", to, kBadDiagonal);
    ExpectRefused("turn B | BM 5C | RP 4D", "4D", "5F", kBadDiagonal);
    ExpectRefused("turn B | BP 4D", "4D", "6F", kTooMany);
}

TEST(Moves, EachModeHasItsOwnDiagonalLimit) {
    TestGame controlledOnly("turn B | BM 5C | RO 4D | RO 8H");
    SetPiece(controlledOnly.game, 17, Red, Officer, 2, 0, 2, 1);
    ExpectMoved(controlledOnly, "4D", "3E");
    controlledOnly.game.lstHistory.clear();
    ExpectRefused(controlledOnly, "3E", "2F", kNoDiagonal);

    TestGame ownOnly("turn R | BM 5C | RO 3E");
    SetPiece(ownOnly.game, 17, Red, Officer, 2, 1, 2, 0);
    ExpectMoved(ownOnly, "3E", "4D");
    ownOnly.game.lstHistory.clear();
    ExpectRefused(ownOnly, "4D", "3C", kNoDiagonal);
}

TEST(Moves, DistanceIsJudgedBeforeBlockers) {
    ExpectRefused("turn B | BO 4D | RP 4E", "4D", "4G", kTooMany);
    ExpectRefused("turn B | BO 4D | RP 4E", "4D", "4F", "There is a Red Pawn blocking your move.");
}

TEST(Moves, BlockersAreJudgedBeforeReflection) {
    ExpectRefused("turn B | BO 4D<4F | RP 4E", "4D", "4F", "There is a Red Pawn blocking your move.");
    ExpectRefused("turn B | BO 4D<4F", "4D", "4F", kReflection);
}

TEST(Moves, ReflectionIsJudgedBeforeTheCapture) {
    ExpectRefused("turn B | BO 4D<4E | BP 4E", "4D", "4E", kReflection);
    ExpectRefused("turn B | BO 4D | BP 4E", "4D", "4E", kCantCapture);
}

TEST(Moves, TheBlockerIsNamedByItsSideAndKind) {
    const auto blocked = [](const std::string& blocker, const std::string& name) {
        ExpectRefused("turn B | BO 4D | " + blocker + " 4E", "4D", "4F",
                      "There is a " + name + " blocking your move.");
    };
    blocked("BM", "Blue Master");
    blocked("BO", "Blue Officer");
    blocked("BP", "Blue Pawn");
    blocked("RM", "Red Master");
    blocked("RO", "Red Officer");
    blocked("RP", "Red Pawn");
}

TEST(Moves, OfTwoBlockersTheOneNearerTheDestinationIsNamed) {
    ExpectRefused("turn B | BM 4D | RP 4E | BO 4F", "4D", "4G",
                  "There is a Blue Officer blocking your move.");
    ExpectRefused("turn B | BM 4D | BO 4E | RP 4F", "4D", "4G", "There is a Red Pawn blocking your move.");
    ExpectRefused("turn B | BM 4D | BO 4C | RP 4B", "4D", "4A", "There is a Red Pawn blocking your move.");
}

TEST(Moves, DiagonalsAreBlockedTooTheSquaresBesideThemDoNotMatter) {
    ExpectRefused("turn B | BM 5C | RP 4D | RO 3E | BP 2F", "4D", "1G",
                  "There is a Blue Pawn blocking your move.");
    ExpectMoved("turn B | BM 5C | RP 4D | RO 3D | RO 4E | BP 2E | BP 3F", "4D", "1G");
}

TEST(Moves, APieceOnTheDestinationOrBeyondDoesNotBlock) {
    ExpectMoved("turn B | BM 4D | RP 4G | BP 4C", "4D", "4F");
    ExpectMoved("turn B | BM 4D | RP 4F", "4D", "4F");
}

TEST(Moves, DiagonalDistanceCountsTheStepsOfTrueDiagonals) {
    for (const int sign : {-1, 1}) {
        EXPECT_EQ(DiagonalDistance(1, sign * 1), 1);
        EXPECT_EQ(DiagonalDistance(2, sign * 2), 2);
        EXPECT_EQ(DiagonalDistance(3, sign * 3), 3);
        EXPECT_EQ(DiagonalDistance(-4, sign * 4), 4);
    }
}

TEST(Moves, DiagonalDistanceKeepsWhatTheFormulaGivesForLongOnes) {
    EXPECT_EQ(DiagonalDistance(5, 5), 6); // 7.0 is exact in single precision
    EXPECT_EQ(DiagonalDistance(6, -6), 6);
    EXPECT_EQ(DiagonalDistance(-7, 7), 8); // 9.8 lies just over
}

TEST(Reflection, ThePieceThatMovedLastMayNotGoStraightBack) {
    TestGame g("turn B | BM 5C | RP 4D | BP 1A");
    ExpectMoved(g, "4D", "4F");
    ExpectMoved(g, "4F", "5F"); // by its owner, elsewhere
    ExpectMoved(g, "1A", "1B");
    ExpectMoved(g, "5F", "4F"); // another piece has moved since
}

TEST(Reflection, HoldsAlsoWhenTheOpponentMovesItUnderControl) {
    TestGame g("turn R | BM 5C | RP 3E | RO 8H");
    ExpectMoved(g, "3E", "4D");
    g.game.lstHistory.clear();
    ExpectRefused(g, "4D", "3E", kReflection);
    g.Click("3F");
    EXPECT_EQ(g.port.message, kBadDiagonal);
    g.Click("4F");
    EXPECT_EQ(g.On("4F"), 21);
}

TEST(Reflection, HoldsForTheOwnerAfterTheOpponentHasMovedItUnderControl) {
    TestGame g("turn B | BM 5C | RP 4D");
    ExpectMoved(g, "4D", "4E");
    g.game.lstHistory.clear();
    ExpectRefused(g, "4E", "4D", kReflection);
}

TEST(Reflection, AnyOtherPieceMayGoToItsOwnPreviousSquare) {
    TestGame g("turn B | BP 1A | BO 8A | RP 1H | RO 8H");
    ExpectMoved(g, "8A", "8B");
    ExpectMoved(g, "8H", "8G");
    ExpectMoved(g, "8B", "8A");
}

TEST(Reflection, AnotherPieceMayGoWhereTheLastMoverCameFrom) {
    TestGame g("turn B | BP 4D | RO 3D");
    ExpectMoved(g, "4D", "4E");
    ExpectMoved(g, "3D", "4D");
}

TEST(Reflection, IsForgottenByEveryPieceButTheMoverAfterAMove) {
    TestGame g("turn B | BP 1A<1B | BO 8A<8B | RP 1H<1G");
    ExpectMoved(g, "8A", "7A");
    EXPECT_EQ(g.game.Piece(4).PrevX, 8);
    EXPECT_EQ(g.game.Piece(4).PrevY, 1);
    for (const int other : {8, 21}) {
        EXPECT_EQ(g.game.Piece(other).PrevX, g.game.Piece(other).X);
        EXPECT_EQ(g.game.Piece(other).PrevY, g.game.Piece(other).Y);
    }
}

TEST(Reflection, IsForgottenAfterACaptureAndTheCapturerRemembers) {
    TestGame g("turn B | BO 8A | BP 1A<1B | RP 8C");
    ExpectMoved(g, "8A", "8C");
    EXPECT_EQ(g.game.Piece(8).PrevY, 1);
    EXPECT_EQ(g.game.Piece(4).PrevX, 8);
    EXPECT_EQ(g.game.Piece(4).PrevY, 1);
}

TEST(Reflection, DoesNotHinderTheFirstMoveOfANewGame) {
    TestGame g;
    EXPECT_EQ(g.game.Piece(12).PrevX, 0);
    EXPECT_EQ(g.game.Piece(12).PrevY, 0);
    ExpectMoved(g, "4E", "4D");
}

TEST(Occupant, AnOwnMoveTakesAnOpposingPiece) {
    for (const char* mover : {"BM", "BO", "BP"})
        for (const char* occupant : {"RM", "RO", "RP"})
            ExpectMoved(std::string("turn B | RM 1H | ") + mover + " 4D | " + occupant + " 4E", "4D", "4E");
}

TEST(Occupant, OnlyAMasterTakesAPieceOfItsOwnSide) {
    for (const char* occupant : {"BM", "BO", "BP"}) {
        const std::string taken = std::string(" | ") + occupant + " 4E";
        ExpectMoved("turn B | BM 4D" + taken, "4D", "4E");
        ExpectRefused("turn B | BO 4D" + taken, "4D", "4E", kCantCapture);
        ExpectRefused("turn B | BP 4D" + taken, "4D", "4E", kCantCapture);
    }
}

TEST(Occupant, AControlledPieceTakesItsOwnSideAndNoOther) {
    ExpectMoved("turn B | BM 5C | RP 4D | RO 4E", "4D", "4E");
    ExpectMoved("turn B | BM 5C | RO 4D | RM 4E", "4D", "4E");
    ExpectRefused("turn B | BM 5C | RP 4D | BO 4E", "4D", "4E", kCantCapture);
    ExpectRefused("turn B | BM 5C | RO 4D | BP 4E", "4D", "4E", kCantCapture);
}

TEST(PlacePiece, ThePiecesOwnSquareDeselectsWithoutAMessage) {
    TestGame g("turn B | BM 4D");
    g.Click("4D");
    g.port.message = "old";
    g.Click("4D");
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Turn, Blue);
    EXPECT_EQ(g.port.message, "");
    EXPECT_EQ(g.port.beeps, 0);
    EXPECT_FALSE(g.port.marker);
    EXPECT_TRUE(g.game.lstHistory.empty());
}

TEST(PlacePiece, AfterARefusalThePieceStaysSelectedForAnotherTry) {
    TestGame g("turn B | BM 4D");
    ExpectRefused(g, "4D", "4H", kTooMany);
    ExpectRefused(g, "4D", "5E", kNoDiagonal);
    g.Click("4G");
    EXPECT_EQ(g.On("4G"), 1);
    EXPECT_EQ(g.port.message, "");
}

TEST(PlacePiece, APlainMoveRemembersWhereItCameFromAndIsRecorded) {
    TestGame g("turn B | BM 4D");
    g.Click("4D");
    g.ClickOnePass("4F");
    EXPECT_EQ(g.game.GameState, kTurnOver);
    EXPECT_EQ(g.game.Piece(1).PrevX, 4);
    EXPECT_EQ(g.game.Piece(1).PrevY, 4);
    EXPECT_EQ(g.game.lstHistory, std::vector<std::string>{"B:BM 4D-4F"});
    EXPECT_EQ(g.port.beeps, 0);
}

TEST(PlacePiece, MovesAndCapturesAreAnimatedWhenTheSettingIsOn) {
    TestGame g("turn B | BM 4D | RP 4H");
    g.settings.AnimateMoves = -1;
    g.Click("4D");
    EXPECT_EQ(g.port.animations, 0);
    Square during;
    g.port.onAnimate = [&] { during = {g.game.Piece(1).X.ToInt16(), g.game.Piece(1).Y.ToInt16()}; };
    g.Click("4F");
    EXPECT_EQ(g.port.animations, 1);
    EXPECT_EQ(during, SquareOf("4D")) << "the new square is written after the animation";
    g.game.Turn = Blue;
    g.Move("4F", "4H");
    EXPECT_EQ(g.port.animations, 2);
}

TEST(PlacePiece, NothingIsAnimatedWhenTheSettingIsOffOrTheMoveRefused) {
    TestGame off("turn B | BM 4D");
    ExpectMoved(off, "4D", "4F");
    EXPECT_EQ(off.port.animations, 0);
    TestGame refused("turn B | BM 4D");
    refused.settings.AnimateMoves = -1;
    ExpectRefused(refused, "4D", "4H", kTooMany);
    EXPECT_EQ(refused.port.animations, 0);
}

TEST(PlacePiece, AnimationFractionsDoNotReachTheRecord) {
    TestGame g("turn B | BM 4D");
    g.settings.AnimateMoves = -1;
    g.port.onAnimate = [&] { g.game.Piece(1).Y += Currency::FromRaw(2'500); };
    ExpectMoved(g, "4D", "4F");
    EXPECT_EQ(g.game.lstHistory, std::vector<std::string>{"B:BM 4D-4F"});
}

TEST(PlacePiece, AClickDuringAnAnimationIsIgnored) {
    TestGame g("turn B | BM 4D | RO 1H");
    g.settings.AnimateMoves = -1;
    g.port.onAnimate = [&] {
        g.game.Animating = true;
        g.Click("1H");
        g.game.Animating = false;
    };
    ExpectMoved(g, "4D", "4F");
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.ClickX, 0);
    EXPECT_EQ(g.game.CurPiece, 1) << "the clicked piece was not picked";
}

TEST(PlacePiece, NothingIsPlacedWhileAPieceIsMoving) {
    TestGame g("turn B | BM 4D");
    g.Click("4D");
    g.game.ClickX = 4;
    g.game.ClickY = 6;
    g.game.Animating = true;
    g.port.message = "old";
    g.main.Pass();
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    EXPECT_EQ(g.On("4D"), 1);
    EXPECT_EQ(g.port.message, "old");
}

TEST(PlacePiece, WithNoPieceSelectedEverySquareIsRefused) {
    TestGame g("turn B | BM 4D");
    g.game.GameState = kPlacePiece;
    g.game.CurPiece = 0;
    const auto pieces = g.game.PieceTable;
    for (const char* to : {"1A", "4D", "8H", "1H"})
        g.Click(to);
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    EXPECT_EQ(g.game.PieceTable, pieces);
}

} // namespace
} // namespace tarveth::test
