// The last move, read from the end of a history.
#include "storage/lastmove.h"

#include "engine/rules/Game.h"
#include "storage/notation.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {

TEST(LastMove, OfAnEmptyHistoryIsNone) {
    EXPECT_EQ(ReadLastMove({}), MoveTrace{});
}

TEST(LastMove, IsTheOneOfTheLastLine) {
    EXPECT_EQ(ReadLastMove({"B:BP 4E-4D", "R:RO 5C-5E"}), (MoveTrace{{5, 3}, {5, 5}, false, {}}));
    EXPECT_EQ(ReadLastMove({"B:RP 1A-8H cRO"}), (MoveTrace{{1, 1}, {8, 8}, true, {}}));
}

TEST(LastMove, GoesWithTheReturnThatItHasEarned) {
    EXPECT_EQ(ReadLastMove({"B:BP 4E-4D", "R:RO 5C-5E cBO", "  RP r2G"}),
              (MoveTrace{{5, 3}, {5, 5}, true, {2, 7}}));
}

TEST(LastMove, OfLinesThatAreNoMovesIsNone) {
    for (const char* line :
         {"", "?", "B:BP 4E", "B:BP 4E-", "B:BP 0E-4D", "B:BP 4E-4I", "B:BP 9E-4D", "B BP 4E-4D",
          "B:BP 4E 4D", "  BP r2I", "  BP r2G", "  BP r2G ", "a long line that says nothing"})
        EXPECT_EQ(ReadLastMove({line}), MoveTrace{}) << line;
    EXPECT_EQ(ReadLastMove({"nothing", "  BP r2G"}), MoveTrace{});
}

TEST(LastMove, IsReadFromTheLinesOfAGame) {
    TestGame g("turn B|BM 4D|RO 4C|BP 1H|jail BP");
    g.port.game = &g.game;
    g.Move("4D", "4C");
    EXPECT_EQ(ReadLastMove(g.game.lstHistory), (MoveTrace{{4, 4}, {4, 3}, true, {}}));
    g.Click("8A");
    EXPECT_EQ(ReadLastMove(g.game.lstHistory), (MoveTrace{{4, 4}, {4, 3}, true, {8, 1}}));
}

} // namespace tarveth::test
