// Twenty thousand whole games, every pass of them checked (see CheckedPlay).
#include "engine/modMAIN.h"
#include "tests/engine/CheckedPlay.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

constexpr int kGames = 2500;  // for each seed and layout
constexpr int kLongest = 400; // turns

void PlayToTheEnd(std::int16_t boardVariant, std::uint64_t seed) {
    CheckedPlay play(boardVariant, seed);
    int cut = 0;
    for (int ended = 0; ended < kGames;)
        ++(play.PlayGame(kLongest) ? ended : cut);
    EXPECT_LT(cut, kGames / 2);
}

} // namespace

class SeededGames : public testing::TestWithParam<std::uint64_t> {};

TEST_P(SeededGames, AreCheckedOnTheImperialBoard) {
    PlayToTheEnd(kImperialBoard, 100 + GetParam());
}

TEST_P(SeededGames, AreCheckedOnTheDraumeCrownBoard) {
    PlayToTheEnd(kDraumeCrownBoard, 200 + GetParam());
}

INSTANTIATE_TEST_SUITE_P(Seeds, SeededGames, testing::Range<std::uint64_t>(1, 5));

TEST(RandomGames, ByClicksOnAnySquareAtAll) {
    CheckedPlay play(kImperialBoard, 301);
    int ended = 0;
    for (int game = 0; game < 20; ++game)
        ended += play.ClickThroughGame(50'000) ? 1 : 0;
    EXPECT_GT(ended, 0);
}

} // namespace tarveth::test
