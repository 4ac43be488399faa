// A game against the computer, from the menu to its first turns.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

constexpr const char* kDialog = "Play Against the Computer";

class AgainstTheComputer : public testing::Test {
protected:
    // Opens the dialog, presses the access keys in it and takes what it then says.
    void Begin(const std::vector<std::string>& keys) {
        desk.Choose("G", "p");
        const Window dialog = desk.program.WaitForWindow(kDialog);
        for (const std::string& key : keys)
            desk.screen.Key(key);
        desk.KeepShot("computer-dialog");
        desk.screen.Key("Return");
        ASSERT_TRUE(dialog.WaitUntilGone());
    }

    [[nodiscard]] bool HistoryReaches(std::size_t lines) const {
        return WaitUntil([&] { return desk.History().size() >= lines; });
    }

    GameFolder folder{"[Options]\r\nHistory=-1\r\n[Game]\r\nKeepAside=0\r\nOwnSide=1\r\nComputerLevel=1\r\n"};
    GameDesk desk{folder};
};

TEST_F(AgainstTheComputer, ItAnswersATurn) {
    ASSERT_NO_FATAL_FAILURE(Begin({}));
    desk.Move("4E", "4D");
    ASSERT_TRUE(HistoryReaches(2));
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Blue"));
    EXPECT_EQ(desk.History().size(), 2U);
    desk.KeepShot("computer-has-moved");
}

TEST_F(AgainstTheComputer, ItBeginsWhereTheUserPlaysRed) {
    ASSERT_NO_FATAL_FAILURE(Begin({"Alt+r"}));
    ASSERT_TRUE(HistoryReaches(1));
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
}

TEST_F(AgainstTheComputer, NothingHappensWhereTheDialogIsCancelled) {
    desk.Choose("G", "p");
    const Window dialog = desk.program.WaitForWindow(kDialog);
    desk.screen.Key("Escape");
    ASSERT_TRUE(dialog.WaitUntilGone());
    desk.Move("4E", "4D");
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    desk.WaitUntilAtRest();
    EXPECT_EQ(desk.History().size(), 1U);
}

TEST_F(AgainstTheComputer, ItMovesForTheUserOnce) {
    desk.Choose("G", "l");
    ASSERT_TRUE(HistoryReaches(1));
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    desk.WaitUntilAtRest();
    EXPECT_EQ(desk.History().size(), 1U);
}

TEST_F(AgainstTheComputer, AHintSaysWhichTurnIsGood) {
    desk.Choose("G", "h");
    ASSERT_TRUE(WaitUntil([&] { return desk.Text("lblTold").rfind("Move your ", 0) == 0; }))
        << desk.Text("lblTold");
    desk.WaitUntilAtRest();
    desk.KeepShot("hint");
    EXPECT_TRUE(desk.History().empty());
    desk.Move("4E", "4D");
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
}

TEST_F(AgainstTheComputer, TheChoiceIsKept) {
    ASSERT_NO_FATAL_FAILURE(Begin({"Alt+r"}));
    ASSERT_TRUE(HistoryReaches(1));
    ASSERT_EQ(desk.Close(), 0);
    EXPECT_NE(folder.Read("tarveth.ini").find("OwnSide=2"), std::string::npos) << folder.Read("tarveth.ini");
}

TEST_F(AgainstTheComputer, TheProgramEndsWhileItThinks) {
    ASSERT_NO_FATAL_FAILURE(Begin({"Alt+r"}));
    EXPECT_EQ(desk.Close(), 0);
}

} // namespace
} // namespace tarveth::harness
