// A whole game with the mouse, from the first click to the victory, on each layout.

#include "tests/window/GameDesk.h"
#include "tests/window/RecordedGame.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

RecordedGame Recorded(const std::string& name) {
    return RecordedGame(TARVETH_SOURCE_DIR "/tests/data/" + name + ".moves");
}

constexpr const char* kHowToBegin = "To begin play: click on the piece you'd like to move, then click on the "
                                    "location where you'd like to place "
                                    "the selected piece. To deselect a selected piece, click it again.";

std::string Ini(int layout, bool animate) {
    return "[Options]\r\nGameBoard=" + std::to_string(layout) + "\r\nAnimateMoves=" + (animate ? "-1" : "0") +
           "\r\nHistory=-1\r\nAutoSaveLog=-1\r\n";
}

// Plays one step and waits for the turn, or the part of it, to be over.
void PlayStep(GameDesk& desk, const std::string& step, const std::string& nextPrompt) {
    if (step.size() == 1) {
        const Window question = desk.program.WaitForWindow("Return");
        desk.KeepShot("question-what-comes-back");
        desk.screen.Click(desk.Place(step == "O" ? "picReturnOfficer" : "picReturnPawn").Centre());
        ASSERT_TRUE(question.WaitUntilGone()) << step;
    } else if (step.starts_with("  ")) {
        desk.ClickSquare(step.substr(6));
    } else {
        desk.Move(step.substr(5, 2), step.substr(8, 2));
    }
    if (!nextPrompt.empty()) {
        ASSERT_TRUE(desk.PromptBecomes(nextPrompt)) << step << '\n' << desk.reader.Outline();
    }
}

void PlaySteps(GameDesk& desk, const RecordedGame& game, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::string next = i + 1 == game.steps.size() ? "Game Over" : PromptBefore(game.steps[i + 1]);
        PlayStep(desk, game.steps[i], next);
        if (testing::Test::HasFatalFailure()) {
            return;
        }
    }
}

// The game is over: it says who has won and takes no more clicks.
void ExpectTheEnd(GameDesk& desk, const RecordedGame& game) {
    EXPECT_EQ(desk.Text("lblMessage"), game.victory);
    EXPECT_EQ(desk.Text("lblMoveStatus"), "Game Over");
    EXPECT_EQ(desk.History(), game.History());
    const Picture end = desk.All();
    for (int row = 0; row < 8; ++row) {
        for (int column = 0; column < 8; ++column) {
            desk.ClickSquare(std::string{static_cast<char>('1' + column), static_cast<char>('A' + row)});
        }
    }
    EXPECT_TRUE(desk.All() == end);
    EXPECT_EQ(desk.Text("lblMessage"), game.victory);
    EXPECT_EQ(desk.History(), game.History());
}

void PlayToTheEnd(const std::string& name, int layout) {
    const RecordedGame game = Recorded(name);
    const GameFolder folder(Ini(layout, false));
    GameDesk desk(folder);
    const Picture start = desk.Board();
    ASSERT_NO_FATAL_FAILURE(PlaySteps(desk, game, game.steps.size()));
    desk.KeepShot("end-of-" + name);
    ExpectTheEnd(desk, game);

    EXPECT_EQ(folder.Read("lastgame.log"), "") << "the log waits for the next game";
    desk.Choose("F", "n");
    ASSERT_TRUE(desk.PromptBecomes("Pick piece"));
    EXPECT_EQ(folder.Read("lastgame.log"), AsLog(game.History()));
    EXPECT_TRUE(desk.Board() == start);
    EXPECT_TRUE(desk.History().empty());
    EXPECT_EQ(desk.Text("lblCurPlayer"), "Blue");
    EXPECT_EQ(desk.Text("lblMessage"), kHowToBegin);
}

TEST(WholeGame, OnTheImperialBoardIsPlayedToItsVictory) {
    PlayToTheEnd("imperial", 1);
}

TEST(WholeGame, OnTheDraumeCrownBoardIsPlayedToItsVictory) {
    PlayToTheEnd("draume", 2);
}

TEST(WholeGame, GoesTheSameWayWithMovingPieces) {
    const RecordedGame game = Recorded("imperial");
    const GameFolder still(Ini(1, false));
    const GameFolder moving(Ini(1, true));
    constexpr std::size_t kStretch = 6;
    GameDesk stillDesk(still);
    ASSERT_NO_FATAL_FAILURE(PlaySteps(stillDesk, game, kStretch));
    const std::vector<std::string> history = stillDesk.History();
    const Picture board = stillDesk.Board();
    stillDesk.Close();

    GameDesk desk(moving);
    ASSERT_NO_FATAL_FAILURE(PlaySteps(desk, game, kStretch));
    EXPECT_EQ(desk.History(), history);
    EXPECT_TRUE(desk.Board() == board);
}

TEST(WholeGame, IsWrittenToTheLogOfTheNextStart) {
    const RecordedGame game = Recorded("imperial");
    const GameFolder folder(Ini(1, false));
    GameDesk desk(folder);
    ASSERT_NO_FATAL_FAILURE(PlaySteps(desk, game, 2));
    desk.Choose("F", "n");
    ASSERT_TRUE(WaitUntil([&] { return !folder.Read("lastgame.log").empty(); }));
    EXPECT_EQ(desk.Close(), 0);

    const GameDesk again(folder);
    EXPECT_TRUE(folder.Has("lastgame.log"));
    EXPECT_EQ(folder.Read("lastgame.log"), "") << "each start begins a new game";
}

} // namespace
} // namespace tarveth::harness
