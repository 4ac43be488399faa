// Saved games that are opened from outside the program: dropped on its window, and double clicked.

#include "storage/modFileIO.h"
#include "tests/TestGame.h"
#include "tests/window/FileDrop.h"
#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

using Lines = std::vector<std::string>;

constexpr char kIni[] = "[Options]\r\nGameBoard=1\r\nAnimateMoves=0\r\nHistory=-1\r\n";

class FilesFromOutside : public testing::Test {
protected:
    FilesFromOutside() {
        test::TestGame table;
        table.Move("4E", "4D");
        folder.Write("one.tsg", GameText(table.game, "x"));
        table.Move("4C", "4D");
        folder.Write("two.tsg", GameText(table.game, "x"));
    }
    std::string Path(const std::string& file) const { return (folder.Path() / file).string(); }

    const GameFolder folder{kIni};
};

TEST_F(FilesFromOutside, AGameThatIsDroppedOnTheBoardIsOpened) {
    GameDesk desk(folder);
    desk.WaitUntilAtRest();
    ASSERT_TRUE(DropFile(desk.screen, desk.window, desk.BoardArea().Centre(), Path("two.tsg")));
    EXPECT_TRUE(WaitUntil([&] { return desk.History() == Lines{"B:BP 4E-4D", "R:RO 4C-4D cBP"}; }));
    EXPECT_EQ(desk.Text("lblCurPlayer"), "Blue");
}

TEST_F(FilesFromOutside, AFileThatIsNoGameIsRefusedWithASentenceWhenItIsDropped) {
    GameDesk desk(folder);
    desk.WaitUntilAtRest();
    ASSERT_TRUE(DropFile(desk.screen, desk.window, desk.BoardArea().Centre(), Path("tarveth.ini")));
    const Window box = desk.MessageBox();
    EXPECT_TRUE(desk.MessageBoxText().starts_with("The game is not loaded.\n")) << desk.MessageBoxText();
    desk.screen.Key("Return");
    EXPECT_TRUE(box.WaitUntilGone());
}

// The desktop file starts the program with the path of the file, once for each.
TEST_F(FilesFromOutside, ASecondGameThatIsDoubleClickedHasAWindowOfItsOwn) {
    GameDesk first(folder, {.arguments = {Path("one.tsg")}});
    GameDesk second(folder, {.arguments = {Path("two.tsg")}});
    EXPECT_TRUE(WaitUntil([&] { return second.History().size() == 2; }));
    EXPECT_EQ(first.History().size(), 1U) << "the first window keeps its game";
    EXPECT_EQ(second.Close(), 0);
    EXPECT_EQ(first.Close(), 0);
}

} // namespace
} // namespace tarveth::harness
