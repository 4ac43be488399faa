// The compact position after a turn is the one that the tables of the played game would give.
#include "engine/rules/CompactGame.h"

#include "tests/Dice.h"
#include "tests/TestGame.h"
#include "tests/engine/RandomPosition.h"

#include <gtest/gtest.h>
#include <vector>

namespace tarveth::test {

namespace {

std::vector<CompactTurn> TurnsOf(const CompactGame& position) {
    std::vector<CompactTurn> turns;
    position.ForEachTurn([&](const CompactTurn& turn) { turns.push_back(turn); });
    return turns;
}

// Plays by chance until the game is over, stuck or 200 turns old; gives the first fault met.
std::string FaultOfRandomPlay(const Game& game, Dice& dice) {
    const PieceFacts facts(game);
    CompactGame position(game, facts);
    for (int turn = 0; turn < 200 && position.Check().empty() && !position.IsOver(); ++turn) {
        const std::vector<CompactTurn> turns = TurnsOf(position);
        if (turns.empty())
            break;
        position.Play(dice.OneOf(turns));
    }
    return position.Check();
}

void PutOnOneSquare(Game& game, int moved, int onto) {
    game.Piece(moved).X = game.Piece(onto).X;
    game.Piece(moved).Y = game.Piece(onto).Y;
}

} // namespace

TEST(CompactGame, ItsTablesAgreeAfterEveryTurnOfRandomGames) {
    Dice dice(31);
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ(FaultOfRandomPlay(RandomPosition(dice), dice), "") << "game " << i;
}

TEST(CompactGame, APositionWithTwoPiecesOnASquareIsFaulty) {
    Game game = TestGame().game;
    const PieceFacts facts(game);
    PutOnOneSquare(game, 1, 2);
#ifdef NDEBUG
    EXPECT_EQ(CompactGame(game, facts).Check(), "there are not 26 pieces");
#else
    EXPECT_DEATH(CompactGame(game, facts), "Check");
#endif
}

TEST(CompactGame, PlayingLeavesTheCopyItWasMadeFromAlone) {
    const Game game = TestGame().game;
    const PieceFacts facts(game);
    const CompactGame before(game, facts);
    CompactGame after = before;
    after.Play(TurnsOf(before).front());
    EXPECT_EQ(after.Turn(), Opponent(before.Turn()));
    EXPECT_EQ(TurnsOf(before).size(), 44U);
}

} // namespace tarveth::test
