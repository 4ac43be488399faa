// Compares JudgeMove and JudgePick with the plain implementation of the rules, on every square.
#include "engine/rules/Game.h"
#include "tests/Dice.h"
#include "tests/PlainJudge.h"
#include "tests/engine/RandomPosition.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

// Describes a move for a failure message, as in "piece 3 to (4, 5)".
std::string Where(int piece, Square to) {
    return "piece " + std::to_string(piece) + " to (" + std::to_string(to.column) + ", " +
           std::to_string(to.row) + ')';
}

void ExpectMovesAgree(const Game& game, int piece) {
    for (int column = 1; column <= kBoardSize; ++column)
        for (int row = 1; row <= kBoardSize; ++row)
            if (const Square to{column, row}; !game.Piece(piece).StandsOn(to)) {
                const Verdict engine = JudgeMove(game, piece, to);
                const Verdict plain = PlainlyJudgeMove(game, piece, to);
                ASSERT_TRUE(engine == plain) << Where(piece, to) << ": " << RefusalText(game, engine) << " / "
                                             << RefusalText(game, plain);
            }
}

void ExpectMovesAgree(std::uint64_t seed, int positions) {
    Dice dice(seed);
    for (int i = 0; i < positions; ++i) {
        const Game game = RandomPosition(dice);
        for (int piece = 1; piece <= kPieces; ++piece)
            if (!game.Piece(piece).InJail()) {
                ASSERT_NO_FATAL_FAILURE(ExpectMovesAgree(game, piece));
            }
    }
}

} // namespace

TEST(PlainJudge, AgreesOnEveryMove) {
    ExpectMovesAgree(11, 1000);
}

TEST(PlainJudge, AgreesOnEveryMoveOfOtherPositions) {
    ExpectMovesAgree(12, 1000);
}

TEST(PlainJudge, AgreesOnWhatMayBePicked) {
    Dice dice(13);
    for (int i = 0; i < 3000; ++i) {
        const Game game = RandomPosition(dice);
        for (int column = 1; column <= kBoardSize; ++column)
            for (int row = 1; row <= kBoardSize; ++row)
                ASSERT_TRUE(JudgePick(game, {column, row}) == PlainlyJudgePick(game, {column, row}))
                    << "position " << i << ": " << column << ", " << row;
    }
}

} // namespace tarveth::test
