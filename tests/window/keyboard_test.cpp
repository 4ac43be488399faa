// Playing without a mouse, and changing between mouse and keyboard.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

class Keyboard : public testing::Test {
protected:
    void Keys(std::initializer_list<const char*> keys) {
        for (const char* key : keys) {
            desk.screen.Key(key);
        }
    }

    // Which squares look otherwise than in `before`.
    std::string ChangedSince(const Picture& before) {
        const Picture now = desk.Board();
        std::string changed;
        for (const char row : std::string_view("ABCDEFGH")) {
            for (const char column : std::string_view("12345678")) {
                const std::string square{column, row};
                if (!(CutOut(now, square) == CutOut(before, square))) {
                    changed += changed.empty() ? square : ' ' + square;
                }
            }
        }
        return changed;
    }

    Picture CutOut(const Picture& board, std::string_view square) const {
        const Rect whole = desk.BoardArea();
        const Rect area = desk.SquareArea(square);
        Picture cut{area.width, area.height, {}};
        for (int y = 0; y < area.height; ++y) {
            for (int x = 0; x < area.width; ++x) {
                cut.pixels.push_back(board.Pixel(area.x - whole.x + x, area.y - whole.y + y));
            }
        }
        return cut;
    }

    bool TurnBecomes(const std::string& player) const { return desk.TextBecomes("lblCurPlayer", player); }

    GameFolder folder{"[Options]\r\nAnimateMoves=0\r\nHistory=-1\r\n"};
    GameDesk desk{folder};
    Picture start = desk.Board();
};

TEST_F(Keyboard, ShowsItsCursorWithTheFirstArrow) {
    desk.screen.Key("Up");
    EXPECT_EQ(ChangedSince(start), "4E");
    desk.screen.Key("Up");
    EXPECT_EQ(ChangedSince(start), "4D");
}

TEST_F(Keyboard, StopsItsCursorAtTheEdges) {
    desk.screen.Key("Up");
    Keys({"Up", "Up", "Up", "Up", "Up", "Up"});
    EXPECT_EQ(ChangedSince(start), "4A");
    Keys({"Left", "Left", "Left", "Left", "Left"});
    EXPECT_EQ(ChangedSince(start), "1A");
    Keys({"Down", "Down", "Down", "Down", "Down", "Down", "Down", "Down", "Down"});
    EXPECT_EQ(ChangedSince(start), "1H");
    Keys({"Right", "Right", "Right", "Right", "Right", "Right", "Right", "Right", "Right"});
    EXPECT_EQ(ChangedSince(start), "8H");
}

TEST_F(Keyboard, PicksAndPlacesWithEnterAndSpace) {
    Keys({"Up", "Return"});
    ASSERT_TRUE(desk.PromptBecomes("Place piece"));
    Keys({"Up", "Return"});
    ASSERT_TRUE(TurnBecomes("Red"));
    Keys({"Left", "space"});
    ASSERT_TRUE(desk.PromptBecomes("Place piece"));
    Keys({"Down", "space"});
    ASSERT_TRUE(TurnBecomes("Blue"));
    EXPECT_EQ(desk.History(), (std::vector<std::string>{"B:BP 4E-4D", "R:RP 3D-3E"}));
}

TEST_F(Keyboard, DeselectsAPieceWithTheSameKey) {
    Keys({"Up", "Return"});
    ASSERT_TRUE(desk.PromptBecomes("Place piece"));
    Keys({"Return"});
    ASSERT_TRUE(desk.PromptBecomes("Pick piece"));
    EXPECT_EQ(ChangedSince(start), "4E") << "the cursor alone is left";
}

TEST_F(Keyboard, GoesOnWhereTheMouseWas) {
    desk.ClickSquare("6E");
    ASSERT_TRUE(desk.PromptBecomes("Place piece"));
    Keys({"Up", "Up", "Return"}); // the first shows the cursor on 6E
    ASSERT_TRUE(TurnBecomes("Red"));
    desk.ClickSquare("5D");
    ASSERT_TRUE(desk.PromptBecomes("Place piece"));
    Keys({"Down", "Return"});
    ASSERT_TRUE(TurnBecomes("Blue"));
    Keys({"Left", "Return"}); // on 4E
    ASSERT_TRUE(desk.PromptBecomes("Place piece"));
    desk.ClickSquare("4D");
    ASSERT_TRUE(TurnBecomes("Red"));
    EXPECT_EQ(desk.History(), (std::vector<std::string>{"B:BP 6E-6D", "R:RP 5D-5E", "B:BP 4E-4D"}));
}

TEST_F(Keyboard, ReachesTheMoveListAndComesBack) {
    const auto focused = [&](const std::string& id) {
        return WaitUntil([&] { return desk.reader.Find(WithId(id))->Has("focused"); });
    };
    desk.Move("4E", "4D");
    ASSERT_TRUE(TurnBecomes("Red"));
    EXPECT_TRUE(focused("picDisplay"));
    desk.screen.Key("Tab");
    EXPECT_TRUE(focused("lstHistory")) << desk.reader.Outline();
    desk.screen.Key("Shift+Tab");
    EXPECT_TRUE(focused("picDisplay")) << desk.reader.Outline();
    Keys({"Left", "Left", "Return"});
    EXPECT_TRUE(desk.PromptBecomes("Place piece")) << "the board has the keys again";
}

TEST(KeyboardAlone, StaysOnTheBoardWithoutAMoveList) {
    const GameFolder folder;
    const GameDesk desk(folder);
    Screen screen;
    for (const char* key : {"Tab", "Tab", "Up", "Return"}) {
        screen.Key(key);
    }
    EXPECT_TRUE(desk.PromptBecomes("Place piece"));
}

TEST_F(Keyboard, ComesBackFromTheMenus) {
    desk.screen.Key("Alt+F");
    desk.screen.Key("Escape");
    desk.screen.Key("Escape");
    Keys({"Up", "Return"});
    EXPECT_TRUE(desk.PromptBecomes("Place piece"));
}

} // namespace
} // namespace tarveth::harness
