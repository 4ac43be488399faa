// Hints: when there is one, what it shows, and when it ends.
#include "engine/rules/positiontext.h"
#include "play/Adviser.h"
#include "tests/RecordingPort.h"
#include "tests/play/WindowThread.h"

#include <gtest/gtest.h>

#include <thread>

namespace tarveth::test {
namespace {

class AdviserTest : public testing::Test {
protected:
    AdviserTest() {
        adviser.Time = std::chrono::milliseconds(50);
        Set("turn B|BM 1A|BO 4D|BP 8H|RM 8A|RO 4E|RP 1H|jail RM RM");
    }

    void Set(const std::string& position) {
        SetPosition(game, position);
        adviser.Follow();
    }

    void WaitForHint() {
        ASSERT_TRUE(adviser.Thinks());
        thread.RunNext();
    }

    Game game;
    NetGame net;
    RecordingPort port;
    WindowThread thread;
    int painted = 0;
    Adviser adviser{game, net, port, [this](std::function<void()> work) { thread.RunSoon(std::move(work)); },
                    [this] { ++painted; }};
};

TEST_F(AdviserTest, ShowsTheTurnAndSaysWhy) {
    adviser.GiveHint();
    EXPECT_EQ(port.message, "Looking for a good turn...");
    ASSERT_NO_FATAL_FAILURE(WaitForHint());
    EXPECT_EQ(adviser.Shown().to, SquareOf("4E"));
    EXPECT_EQ(port.message.substr(0, 5), "Move ") << port.message;
    EXPECT_EQ(painted, 1);
    EXPECT_FALSE(adviser.Thinks());
}

TEST_F(AdviserTest, EndsWithTheTurn) {
    adviser.GiveHint();
    ASSERT_NO_FATAL_FAILURE(WaitForHint());
    Set("turn R|BM 1A|BO 4C|BP 8H|RM 8A|RO 4E|RP 1H|jail RM RM");
    EXPECT_EQ(adviser.Shown(), MoveTrace());
    EXPECT_EQ(painted, 2);
}

TEST_F(AdviserTest, StaysWhileAPieceIsPicked) {
    adviser.GiveHint();
    ASSERT_NO_FATAL_FAILURE(WaitForHint());
    game.GameState = kPlacePiece;
    adviser.Follow();
    EXPECT_TRUE(adviser.Shown().from.OnBoard());
}

TEST_F(AdviserTest, IsDroppedWhereTheGameHasGoneOn) {
    adviser.GiveHint();
    Set("turn R|BM 1A|BO 4C|BP 8H|RM 8A|RO 4E|RP 1H|jail RM RM");
    EXPECT_FALSE(adviser.Thinks());
    EXPECT_EQ(adviser.Shown(), MoveTrace());
}

TEST_F(AdviserTest, CanBeAskedForAgainAtAnyMoment) {
    for (int number = 0; number < 20; ++number) {
        adviser.GiveHint();
        std::this_thread::sleep_for(std::chrono::microseconds(300 * number));
    }
    while (adviser.Thinks())
        thread.RunNext();
    EXPECT_TRUE(adviser.Shown().from.OnBoard());
    EXPECT_EQ(painted, 1);
}

TEST_F(AdviserTest, IsNotGivenOverTheNetwork) {
    net.NetConnected = net.InGame = true;
    adviser.GiveHint();
    EXPECT_FALSE(adviser.Thinks());
    EXPECT_EQ(port.message, "There are no hints in a game over the network.");
}

TEST_F(AdviserTest, IsNotGivenForTheComputersTurn) {
    net.ComputerPlaysBlue = true;
    adviser.GiveHint();
    EXPECT_FALSE(adviser.Thinks());
    EXPECT_EQ(port.message, "There is no hint: the computer is to move.");
}

TEST_F(AdviserTest, IsNotGivenWhereTheGameIsOver) {
    game.GameState = kGameOver;
    adviser.GiveHint();
    EXPECT_EQ(port.message, "There is no hint: the game is over.");
}

TEST_F(AdviserTest, IsNotGivenWhereThereIsNoMove) {
    Set("turn B|RM 8H|RP 1A|jail BM BM");
    adviser.GiveHint();
    EXPECT_EQ(port.message, "There is no hint: Blue has no move.");
}

} // namespace
} // namespace tarveth::test
