// Games share no state.
#include "engine/modMAIN.h"
#include "tests/engine/CheckedPlay.h"

#include <gtest/gtest.h>
#include <thread>

namespace tarveth::test {

namespace {

constexpr int kGames = 100;

Game PlayAlone(int seed) {
    CheckedPlay play(seed % 2 == 0 ? kImperialBoard : kDraumeCrownBoard, static_cast<std::uint64_t>(seed));
    play.PlayGame(200);
    return play.Board();
}

} // namespace

TEST(SideBySide, AHundredGamesOnAHundredThreadsEndAsEachDoesAlone) {
    std::vector<Game> together(kGames);
    std::vector<std::thread> threads;
    threads.reserve(kGames);
    for (int i = 0; i < kGames; ++i)
        threads.emplace_back([&together, i] { together[static_cast<std::size_t>(i)] = PlayAlone(i); });
    for (std::thread& thread : threads)
        thread.join();
    for (int i = 0; i < kGames; ++i)
        EXPECT_TRUE(together[static_cast<std::size_t>(i)] == PlayAlone(i)) << "game " << i;
}

TEST(SideBySide, TwoGamesTakeTurnsWithoutTouchingEachOther) {
    TestGame one;
    TestGame other;
    one.Move("4E", "4D");
    EXPECT_EQ(one.game.Turn, Red);
    EXPECT_EQ(other.game.Turn, Blue);
    EXPECT_EQ(other.game, TestGame().game);
}

} // namespace tarveth::test
