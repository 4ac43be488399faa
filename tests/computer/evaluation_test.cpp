#include "computer/evaluation.h"

#include "computer/attacks.h"
#include "tests/computer/Positions.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

using computer::GameRecord;

// Where the side to move could take an opposing piece if one stood there: every square it reaches, seen
// through the rules alone.
SquareSet SquaresTaken(const CompactGame& position) {
    SquareSet taken = 0;
    position.ForEachMover([&](const Mover& mover) {
        taken |= mover.destinations & position.Standing(Opponent(position.Turn()));
    });
    return taken;
}

} // namespace

TEST(Attacks, AreTheOpposingPiecesThatTheRulesAllowToTake) {
    Dice dice(61);
    for (int i = 0; i < 1000; ++i) {
        Game game = RandomOrdinaryPosition(dice);
        for (int piece = 1; piece <= kPieces; ++piece) // nobody is barred from anywhere
            game.Piece(piece).PrevX = game.Piece(piece).PrevY = 0;
        const GameRecord record(game);
        const CompactGame& position = record.Rules();
        const SquareSet theirs = position.Standing(Opponent(position.Turn()));
        ASSERT_EQ(computer::AttackedBy(position, position.Turn()) & theirs, SquaresTaken(position))
            << computer::WritePosition(position);
    }
}

TEST(Attacks, ALastMasterIsInDangerWhereTheOtherSideCouldTakeIt) {
    EXPECT_TRUE(computer::LastMasterInDanger(RecordOf("turn B | BM 1A | RM 3A | jail BM BM").Rules(), Blue));
    EXPECT_FALSE(computer::LastMasterInDanger(RecordOf("turn B | BM 1A | RM 5A | jail BM BM").Rules(), Blue));
    EXPECT_FALSE(computer::LastMasterInDanger(RecordOf("turn B | BM 1A | RM 3A | jail BM").Rules(), Blue));
}

TEST(Evaluation, APieceLessIsWorse) {
    const auto whole = RecordOf("turn B | BM 1A | BO 4D | BP 2B | RM 8H | RO 5E | RP 7G");
    const auto noOfficer = RecordOf("turn B | BM 1A | BP 2B | RM 8H | RO 5E | RP 7G | jail BO");
    const auto noPawn = RecordOf("turn B | BM 1A | BO 4D | RM 8H | RO 5E | RP 7G | jail BP");
    EXPECT_LT(Evaluate(noOfficer.Position()), Evaluate(noPawn.Position()));
    EXPECT_LT(Evaluate(noPawn.Position()), Evaluate(whole.Position()));
}

} // namespace tarveth::test
