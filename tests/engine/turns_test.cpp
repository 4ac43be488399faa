// The listed turns are those that clicking finds, no more and no fewer.
#include "engine/rules/turns.h"

#include "engine/rules/CompactGame.h"
#include "engine/rules/moves.h"
#include "engine/rules/zones.h"
#include "tests/Dice.h"
#include "tests/engine/Clicking.h"
#include "tests/engine/RandomPosition.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>
#include <tuple>

namespace tarveth::test {

namespace {

auto Key(const CompleteTurn& t) {
    return std::tuple(t.piece, t.from.column, t.from.row, t.to.column, t.to.row, t.returnKind,
                      t.returnTo.column, t.returnTo.row);
}

std::vector<CompleteTurn> Sorted(std::vector<CompleteTurn> turns) {
    std::sort(turns.begin(), turns.end(),
              [](const CompleteTurn& a, const CompleteTurn& b) { return Key(a) < Key(b); });
    return turns;
}

void ExpectTurnsAsClicked(std::uint64_t seed, int positions, Game (*makePosition)(Dice&)) {
    Dice dice(seed);
    Clicking clicking;
    for (int i = 0; i < positions; ++i) {
        const Game game = makePosition(dice);
        ASSERT_EQ(Sorted(ListTurns(game)), Sorted(clicking.ListTurns(game))) << "position " << i;
    }
}

std::vector<CompleteTurn> TurnsOf(std::string_view position) {
    return ListTurns(TestGame(position).game);
}

int CountReturns(const std::vector<CompleteTurn>& turns, PieceKind kind) {
    return static_cast<int>(std::count_if(turns.begin(), turns.end(),
                                          [&](const CompleteTurn& t) { return t.returnKind == kind; }));
}

} // namespace

TEST(Turns, AreThoseFoundByClickingInOrdinaryPositions) {
    ExpectTurnsAsClicked(1, 1000, RandomOrdinaryPosition);
}

TEST(Turns, AreThoseFoundByClickingInMoreOrdinaryPositions) {
    ExpectTurnsAsClicked(2, 1000, RandomOrdinaryPosition);
}

TEST(Turns, AreThoseFoundByClickingWhateverTheLimitsAndPreviousSquares) {
    ExpectTurnsAsClicked(3, 1000, RandomPosition);
}

TEST(Turns, AreThoseFoundByClickingWhateverElseTheLimitsAndPreviousSquares) {
    ExpectTurnsAsClicked(4, 1000, RandomPosition);
}

TEST(Turns, ANewGameHas44OnTheImperialBoardAnd39OnTheDraumeCrown) {
    TestGame table;
    EXPECT_EQ(ListTurns(table.game).size(), 44U);
    table.settings.BoardVariant = kDraumeCrownBoard;
    table.main.NewGame();
    EXPECT_EQ(ListTurns(table.game).size(), 39U);
}

TEST(Turns, AReturnMayGoToTheSquareThatTheMoverLeaves) {
    const auto turns = TurnsOf("turn B | BM 1A | RO 1B | RM 8H | jail BP");
    EXPECT_TRUE(std::any_of(turns.begin(), turns.end(), [](const CompleteTurn& t) {
        return t.to == SquareOf("1B") && t.returnKind == Pawn && t.returnTo == SquareOf("1A");
    }));
    EXPECT_EQ(CountReturns(turns, Pawn), 64 - 2);
}

TEST(Turns, ATakenMasterBringsBackEitherKindATakenOfficerOnlyAPawn) {
    const auto forMaster = TurnsOf("turn B | BM 1A | RM 1B | RM 8H | jail BP BO");
    EXPECT_EQ(CountReturns(forMaster, Pawn), 62);
    EXPECT_EQ(CountReturns(forMaster, Officer), 62);
    const auto forOfficer = TurnsOf("turn B | BM 1A | RO 1B | RM 8H | jail BP BO");
    EXPECT_EQ(CountReturns(forOfficer, Pawn), 62);
    EXPECT_EQ(CountReturns(forOfficer, Officer), 0);
}

TEST(Turns, TheLastMasterIsTakenInOneTurnWithoutAReturn) {
    const auto turns = TurnsOf("turn B | BM 1A | RM 1B | jail RM RM BP");
    const auto wins = std::count_if(turns.begin(), turns.end(), [](const CompleteTurn& t) { return t.wins; });
    EXPECT_EQ(wins, 1);
    EXPECT_EQ(CountReturns(turns, Pawn), 0);
}

TEST(Turns, AControlledCaptureOfAnOfficerEarnsAReturnAMastersOfItsOwnSideDoesNot) {
    // The Red Officer on 3C is in the Master's zone, and may take the Red Officer beside it.
    const auto controlled = TurnsOf("turn B | BM 1C | RO 3C | RO 4C | jail BP");
    EXPECT_GT(CountReturns(controlled, Pawn), 0);
    const auto own = TurnsOf("turn B | BM 1A | BO 1B | RM 8H | jail BP");
    EXPECT_EQ(CountReturns(own, Pawn), 0);
}

TEST(Turns, AWonGameHasNone) {
    EXPECT_TRUE(TurnsOf("turn B | BM 1A | jail RM RM RM").empty());
}

TEST(Turns, AFaultyGameIsRefused) {
    TestGame table;
    table.game.Piece(1).X = table.game.Piece(2).X;
    table.game.Piece(1).Y = table.game.Piece(2).Y;
    EXPECT_THROW(ListTurns(table.game), std::invalid_argument);
}

} // namespace tarveth::test
