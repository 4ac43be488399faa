// Ten thousand games between two whole programs. A board that is sent while squares are on their way, or two
// that cross each other, leave two boards by the nature of the messages; so here nothing else is on its way
// when somebody begins a game, loads one or swaps sides.
#include "tests/net/TwoPrograms.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

constexpr int kGames = 2500; // of each seed
constexpr int kLongest = 80; // turns
constexpr int kGamesALink = 50;

class SeededPrograms : public testing::TestWithParam<std::uint64_t> {};

TEST_P(SeededPrograms, KeepTheSameBoards) {
    TwoPrograms programs(GetParam());
    int won = 0;
    for (int game = 1; game <= kGames; ++game) {
        won += programs.PlayGame(kLongest) ? 1 : 0;
        if (game % kGamesALink == 0)
            programs.LinkAnew();
    }
    EXPECT_GT(won, kGames / 10);
    EXPECT_GT(programs.Messages(), kGames * 50);
    RecordProperty("won", won);
    RecordProperty("messages", programs.Messages());
}

INSTANTIATE_TEST_SUITE_P(Seeds, SeededPrograms, testing::Range<std::uint64_t>(1, 5));

} // namespace
} // namespace tarveth::test
