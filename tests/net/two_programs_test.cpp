// Ten thousand games between two whole programs. A board that is sent while squares are on their way, or two
// that cross each other, leave two boards by the nature of the messages; so here nothing else is on its way
// when somebody begins a game, loads one or swaps sides.
#include "tests/net/TwoPrograms.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

constexpr int kGames = 2500; // by each test
constexpr int kLongest = 80; // turns
constexpr int kGamesALink = 50;

void PlayAgainstEachOther(std::uint64_t seed) {
    TwoPrograms programs(seed);
    int won = 0;
    for (int game = 1; game <= kGames; ++game) {
        won += programs.PlayGame(kLongest) ? 1 : 0;
        if (game % kGamesALink == 0)
            programs.LinkAnew();
    }
    EXPECT_GT(won, kGames / 10);
    EXPECT_GT(programs.Messages(), kGames * 50);
    ::testing::Test::RecordProperty("won", won);
    ::testing::Test::RecordProperty("messages", programs.Messages());
}

TEST(TwoPrograms, KeepTheSameBoards1) {
    PlayAgainstEachOther(1);
}

TEST(TwoPrograms, KeepTheSameBoards2) {
    PlayAgainstEachOther(2);
}

TEST(TwoPrograms, KeepTheSameBoards3) {
    PlayAgainstEachOther(3);
}

TEST(TwoPrograms, KeepTheSameBoards4) {
    PlayAgainstEachOther(4);
}

} // namespace
} // namespace tarveth::test
