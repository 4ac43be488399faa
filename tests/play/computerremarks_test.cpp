// What is said about games against the computer: when it is said, and when it is not.
#include "play/ComputerRemarks.h"

#include "engine/rules/Game.h"
#include "engine/rules/positiontext.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

constexpr const char* kBlueHasWon = "turn B|BM 1A|BO 4D|RO 8A|jail RM RM RM";
constexpr const char* kRedHasWon = "turn R|RM 1A|RO 4D|BO 8A|jail BM BM BM";

class Remarks : public testing::Test {
protected:
    // The user plays Blue.
    void PlayGame(const std::string& end, int level = 2) {
        SetPosition(game, "turn B|BM 1A|BO 4D|RM 8H|RO 8A");
        remarks.Watch(game, Blue, level, 0);
        SetPosition(game, end);
        game.GameState = kGameOver;
        remarks.Watch(game, Blue, level, 0);
    }

    Game game;
    ComputerRemarks remarks;
};

TEST_F(Remarks, ThreeWinsInARowSuggestAHigherLevel) {
    PlayGame(kBlueHasWon);
    PlayGame(kBlueHasWon);
    EXPECT_EQ(remarks.Text(), "");
    PlayGame(kBlueHasWon);
    EXPECT_EQ(remarks.Text(),
              "You have won three games in a row: try level 3 with \"Change Level\" in the menu \"Game\".");
    remarks.Watch(game, Blue, 2, 0);
    EXPECT_NE(remarks.Text(), "") << "it stays until the next game";
}

TEST_F(Remarks, ThreeLossesInARowSuggestALowerLevel) {
    for (int number = 0; number < 3; ++number)
        PlayGame(kRedHasWon);
    EXPECT_NE(remarks.Text().find("lost three games in a row: try level 1"), std::string::npos);
}

TEST_F(Remarks, AWinAmongLossesBeginsTheCountAgain) {
    for (const char* end : {kRedHasWon, kRedHasWon, kBlueHasWon, kRedHasWon, kRedHasWon}) {
        PlayGame(end);
        EXPECT_EQ(remarks.Text(), "");
    }
}

TEST_F(Remarks, ThereIsNoLevelAboveTheStrongest) {
    for (int number = 0; number < 3; ++number)
        PlayGame(kBlueHasWon, 7);
    EXPECT_EQ(remarks.Text(), "");
}

TEST_F(Remarks, AnEndThatIsLookedAtForLongCountsOnce) {
    PlayGame(kBlueHasWon);
    for (int look = 0; look < 5; ++look)
        remarks.Watch(game, Blue, 2, 0);
    EXPECT_EQ(remarks.Text(), "");
}

TEST_F(Remarks, SixtyTurnsWithoutACaptureProposeADraw) {
    SetPosition(game, "turn B|BM 1A|BO 4D|RM 8H|RO 8A");
    remarks.Watch(game, Blue, 2, 59);
    EXPECT_EQ(remarks.Text(), "");
    remarks.Watch(game, Blue, 2, 60);
    EXPECT_EQ(remarks.Text(),
              "60 turns without a capture: \"Call It a Draw\" in the menu \"Game\" ends this game.");
    remarks.Watch(game, Blue, 2, 125);
    EXPECT_EQ(remarks.Text().substr(0, 4), "120 ");
    remarks.Watch(game, Blue, 2, 0);
    EXPECT_EQ(remarks.Text(), "");
}

TEST_F(Remarks, NothingIsSaidWhereTwoPlayersPlay) {
    SetPosition(game, "turn B|BM 1A|BO 4D|RM 8H|RO 8A");
    remarks.Watch(game, NoSide, 2, 60);
    EXPECT_EQ(remarks.Text(), "");
}

} // namespace
} // namespace tarveth::test
