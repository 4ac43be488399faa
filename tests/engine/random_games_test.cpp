// Twenty thousand whole games, every pass of them checked (see CheckedPlay).
#include "engine/modMAIN.h"
#include "tests/engine/CheckedPlay.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

constexpr int kGames = 2500;  // by each test
constexpr int kLongest = 400; // turns

void PlayToTheEnd(std::int16_t boardVariant, std::uint64_t seed) {
    CheckedPlay play(boardVariant, seed);
    int cut = 0;
    for (int ended = 0; ended < kGames;)
        ++(play.PlayGame(kLongest) ? ended : cut);
    EXPECT_LT(cut, kGames / 2);
}

} // namespace

TEST(RandomGames, ImperialBoard1) {
    PlayToTheEnd(kImperialBoard, 101);
}

TEST(RandomGames, ImperialBoard2) {
    PlayToTheEnd(kImperialBoard, 102);
}

TEST(RandomGames, ImperialBoard3) {
    PlayToTheEnd(kImperialBoard, 103);
}

TEST(RandomGames, ImperialBoard4) {
    PlayToTheEnd(kImperialBoard, 104);
}

TEST(RandomGames, DraumeCrownBoard1) {
    PlayToTheEnd(kDraumeCrownBoard, 201);
}

TEST(RandomGames, DraumeCrownBoard2) {
    PlayToTheEnd(kDraumeCrownBoard, 202);
}

TEST(RandomGames, DraumeCrownBoard3) {
    PlayToTheEnd(kDraumeCrownBoard, 203);
}

TEST(RandomGames, DraumeCrownBoard4) {
    PlayToTheEnd(kDraumeCrownBoard, 204);
}

TEST(RandomGames, ByClicksOnAnySquareAtAll) {
    CheckedPlay play(kImperialBoard, 301);
    int ended = 0;
    for (int game = 0; game < 20; ++game)
        ended += play.ClickThroughGame(50'000) ? 1 : 0;
    EXPECT_GT(ended, 0);
}

} // namespace tarveth::test
