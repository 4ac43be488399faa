// The dialog of the board's colours.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

class BoardColours : public testing::Test {
protected:
    Window Open() {
        EXPECT_TRUE(desk.window.Activate());
        desk.Choose("V", "o");
        Window dialog = desk.program.WaitForWindow("Board Colours");
        desk.WaitUntilAtRest();
        return dialog;
    }
    Picture Preview() {
        desk.WaitUntilAtRest();
        return desk.screen.Capture(desk.Place("picBoardColours"));
    }

    GameFolder folder;
    GameDesk desk{folder};
    Picture start = desk.Board();
};

TEST_F(BoardColours, ShowEachThemeAndTakeItOver) {
    Window dialog = Open();
    std::vector<Picture> seen = {Preview()};
    for (int theme = 1; theme <= 6; ++theme) {
        desk.screen.Key("Down");
        const Picture now = Preview();
        for (const Picture& before : seen) {
            EXPECT_FALSE(now == before) << theme;
        }
        seen.push_back(now);
        if (theme == 1) {
            desk.KeepShot("board-colours-behind");
            dialog.Capture().WritePng(std::filesystem::path(SHOTS_FOLDER) / "board-colours.png");
        }
    }
    for (int back = 6; back > 1; --back) {
        desk.screen.Key("Up");
    }
    EXPECT_TRUE(Preview() == seen[1]);
    desk.screen.Key("Return");
    ASSERT_TRUE(dialog.WaitUntilGone());
    EXPECT_FALSE(desk.Board() == start);
    EXPECT_EQ(SquaresOfColour(desk.Board(), 0x8B5A2B).substr(0, 5), "1A 7A") << "wood";
    desk.KeepShot("board-of-wood");
    EXPECT_EQ(desk.Close(), 0);
    const std::string ini = folder.Read("tarveth.ini");
    EXPECT_NE(ini.find("[BoardBlack]\r\nR=139\r\nG=90\r\nB=43\r\n"), std::string::npos) << ini;
    EXPECT_NE(ini.find("[BoardWhite]\r\nR=238\r\nG=207\r\nB=161\r\n"), std::string::npos) << ini;
}

TEST_F(BoardColours, StayAsTheyWereWhenTheDialogIsCancelled) {
    const Window dialog = Open();
    desk.screen.Key("Down");
    desk.screen.Key("Escape");
    ASSERT_TRUE(dialog.WaitUntilGone());
    EXPECT_TRUE(desk.Board() == start);
}

} // namespace
} // namespace tarveth::harness
