// The menu bar of the main window: what is in it, and that every command is reached by mouse and keyboard.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

constexpr const char* kImperial = "Imperial Board";
constexpr const char* kDraume = "Draume Crown Board";

constexpr const char* kMenus = R"(File
  New Game
  Load Game
  Save Game
  Save Game As
  ----
  Connect to Internet
  ----
  Exit
Options
  Imperial Board
  Draume Crown Board
  ----
  Options...
Game
  Play Against the Computer...
  Hint
  Let the Computer Move
  ----
  Change Level...
  Call It a Draw
  Stop the Computer
  ----
  Copy Position
  Copy Game
  Paste Position
  Save Picture...
View
  Legal Moves
  Last Move
  Zones
  Zones of Both Sides
  Coordinates
  History
  Keep Finished Games
  ----
  Board Colours...
  ----
  How to Play
Help
  Help on Tarveth
  ----
  Show ZOC
  Show ZOC All
  ----
  About Tarveth
)";

class Menus : public testing::Test {
protected:
    std::string Tree() const {
        std::string tree;
        int barDepth = -1;
        for (const AccessibleNode& node : desk.reader.Read()) {
            if (node.role == "menu bar") {
                barDepth = node.depth;
            } else if (barDepth >= 0 && node.depth > barDepth) {
                const std::string indent(static_cast<std::size_t>(node.depth - barDepth - 1) * 2, ' ');
                tree += indent + (node.role == "separator" ? "----" : node.name) + '\n';
            } else if (barDepth >= 0) {
                break;
            }
        }
        return tree;
    }

    AccessibleNode Item(const std::string& name) const {
        const auto item = desk.reader.Find(WithName(name));
        EXPECT_TRUE(item) << desk.reader.Outline();
        return item.value_or(AccessibleNode{});
    }

    // Opens the Options menu, reads which layout it has checked, and closes it again.
    std::string CheckedLayout() {
        desk.screen.Key("Alt+O");
        EXPECT_TRUE(WaitUntil([&] { return Item(kImperial).Has("showing"); }));
        std::string checked;
        for (const char* layout : {kImperial, kDraume}) {
            if (Item(layout).Has("checked")) {
                checked += layout;
            }
        }
        desk.screen.Key("Escape");
        EXPECT_TRUE(WaitUntil([&] { return !Item(kImperial).Has("showing"); }));
        desk.screen.Key("Escape"); // leaves the menu bar
        desk.WaitUntilAtRest();
        return checked;
    }

    void MoveAPawn() {
        desk.Move("4E", "4D");
        ASSERT_TRUE(WaitUntil([&] { return desk.Text("lblCurPlayer") == "Red"; }));
    }

    GameFolder folder{"[Options]\r\nAnimateMoves=0\r\n[Game]\r\nKeepAside=0\r\n"}; // and so without a bar
    GameDesk desk{folder};
    Picture start = desk.Board();
};

Picture FreshBoard(const std::string& layout) {
    const GameFolder folder("[Options]\r\nGameBoard=" + layout + "\r\n");
    GameDesk desk(folder);
    return desk.Board();
}

TEST_F(Menus, HoldTheCommandsInTheirOrder) {
    EXPECT_EQ(Tree(), kMenus);
}

TEST_F(Menus, HaveAnAnswerForEachCommand) {
    for (const AccessibleNode& node : desk.reader.Read()) {
        EXPECT_FALSE(node.role.ends_with("menu item") && !node.Has("sensitive")) << node.name;
    }
}

TEST_F(Menus, BeginANewGameByTheirKeys) {
    ASSERT_NO_FATAL_FAILURE(MoveAPawn());
    EXPECT_FALSE(desk.Board() == start);
    desk.Choose("F", "n");
    EXPECT_TRUE(WaitUntil([&] { return desk.Text("lblCurPlayer") == "Blue"; }));
    EXPECT_TRUE(desk.Board() == start);
}

TEST_F(Menus, BeginANewGameWithTheMouse) {
    ASSERT_NO_FATAL_FAILURE(MoveAPawn());
    desk.screen.Click(Item("File").extents.Centre());
    ASSERT_TRUE(WaitUntil([&] { return Item("New Game").Has("showing"); }));
    desk.WaitUntilAtRest();
    desk.screen.Click(Item("New Game").extents.Centre());
    EXPECT_TRUE(WaitUntil([&] { return desk.Text("lblCurPlayer") == "Blue"; }));
    EXPECT_TRUE(desk.Board() == start);
}

TEST_F(Menus, ChooseTheLayoutOfTheNextGame) {
    ASSERT_EQ(CheckedLayout(), kImperial);
    desk.Choose("O", "d");
    EXPECT_EQ(CheckedLayout(), kDraume);
    EXPECT_TRUE(desk.Board() == start) << "the game on the board stays";
    ASSERT_NO_FATAL_FAILURE(MoveAPawn());

    desk.Choose("F", "n");
    EXPECT_TRUE(WaitUntil([&] { return desk.Text("lblCurPlayer") == "Blue"; }));
    EXPECT_TRUE(desk.Board() == FreshBoard("2"));
    EXPECT_EQ(CheckedLayout(), kDraume);

    desk.Choose("O", "i");
    EXPECT_EQ(CheckedLayout(), kImperial);
    desk.Choose("F", "n");
    EXPECT_TRUE(WaitUntil([&] { return desk.Board() == start; }));
}

TEST_F(Menus, KeepTheChosenLayoutForTheNextStart) {
    desk.Choose("O", "d");
    EXPECT_EQ(desk.Close(), 0);
    EXPECT_NE(folder.Read("tarveth.ini").find("GameBoard=2\r\n"), std::string::npos);
    GameDesk again(folder);
    EXPECT_TRUE(again.Board() == FreshBoard("2"));
}

TEST_F(Menus, EndTheProgram) {
    desk.Choose("F", "x");
    EXPECT_EQ(desk.program.WaitForExit(), 0);
    EXPECT_EQ(desk.program.Output(), "");
}

} // namespace
} // namespace tarveth::harness
