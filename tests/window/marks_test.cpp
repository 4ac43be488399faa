// The marks on the board, and the switches of the View menu.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

#include <string>

namespace tarveth::harness {
namespace {

// Without a bar above the board, so that the board is always where it was.
constexpr const char* kStill = "[Options]\r\nAnimateMoves=0\r\n[Game]\r\nKeepAside=0\r\n";

class Marks : public testing::Test {
protected:
    // The squares that look otherwise than in `before`, row by row.
    std::string ChangedSince(const Picture& before) {
        const Picture now = desk.Board();
        const int edge = now.width / 8;
        std::string changed;
        for (int row = 0; row < 8; ++row) {
            for (int column = 0; column < 8; ++column) {
                if (Differ(now, before, column * edge, row * edge, edge)) {
                    changed += changed.empty() ? "" : " ";
                    changed += {static_cast<char>('1' + column), static_cast<char>('A' + row)};
                }
            }
        }
        return changed;
    }

    void PointAt(std::string_view square) { desk.screen.MovePointer(desk.SquareArea(square).Centre()); }
    // Chooses from the View menu by an access key.
    void Switch(std::string_view key) {
        desk.Choose("V", key);
        desk.WaitUntilAtRest();
    }

    GameFolder folder{kStill};
    GameDesk desk{folder};
    Picture start = desk.Board();

private:
    static bool Differ(const Picture& a, const Picture& b, int left, int top, int edge) {
        for (int y = top; y < top + edge; ++y) {
            for (int x = left; x < left + edge; ++x) {
                if (a.Pixel(x, y) != b.Pixel(x, y)) {
                    return true;
                }
            }
        }
        return false;
    }
};

TEST_F(Marks, ShowWhereThePickedPieceMayGo) {
    desk.ClickSquare("4E");
    ASSERT_TRUE(desk.PromptBecomes("Place piece"));
    EXPECT_EQ(ChangedSince(start), "3D 4D 5D 3E 4E 5E")
        << "its own square has the frame, and Red's Pawns on 3D and 5D may be taken";
    desk.KeepShot("marks-of-a-pawn");
    desk.ClickSquare("4E");
    ASSERT_TRUE(desk.PromptBecomes("Pick piece"));
    EXPECT_EQ(ChangedSince(start), "");
}

TEST_F(Marks, ShowWhatTheLastMoveHasDone) {
    desk.Move("4E", "4D");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    EXPECT_EQ(ChangedSince(start), "4D 4E");
    const Picture marked = desk.Board();
    Switch("s");
    EXPECT_EQ(ChangedSince(marked), "4D 4E");
    Switch("s");
    EXPECT_TRUE(desk.Board() == marked);
    desk.Choose("F", "n");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Blue"));
    EXPECT_EQ(ChangedSince(start), "");
}

TEST_F(Marks, ShowUnderThePointerWhichPiecesMayBePicked) {
    PointAt("4E");
    EXPECT_EQ(ChangedSince(start), "4E");
    PointAt("5E");
    EXPECT_EQ(ChangedSince(start), "") << "nobody stands there";
    PointAt("3C");
    EXPECT_EQ(ChangedSince(start), "") << "Red's, and outside Blue's zones";
    Switch("l");
    PointAt("4E");
    EXPECT_EQ(ChangedSince(start), "");
}

TEST_F(Marks, ShowTheZonesAsLongAsTheyAreSwitchedOn) {
    Switch("z");
    EXPECT_EQ(ChangedSince(start), "4E 5E 6E 3F 4F 5F 6F 7F 3G 4G 5G 6G 7G 2H 3H 4H 5H 6H 7H 8H");
    desk.KeepShot("zones-view");
    Switch("b");
    desk.KeepShot("zones-view-both");
    desk.Move("4E", "4D");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    desk.KeepShot("zones-view-after-a-move");
    Switch("z");
    Switch("s");
    EXPECT_EQ(ChangedSince(start), "4D 4E") << "the piece has moved, and nothing is marked";
}

TEST_F(Marks, AreKeptAsTheyAreSwitched) {
    EXPECT_EQ(desk.Close(), 0);
    EXPECT_EQ(folder.Read("tarveth.ini").find("[View]"), std::string::npos);
    {
        GameDesk again(folder);
        again.Choose("V", "l");
        again.Choose("V", "c");
        again.WaitUntilAtRest();
        EXPECT_EQ(again.Close(), 0);
    }
    const std::string ini = folder.Read("tarveth.ini");
    EXPECT_TRUE(ini.ends_with("[View]\r\nLegalMoves=0\r\nLastMove=-1\r\nZones=0\r\nBothZones=0\r\n")) << ini;
    EXPECT_NE(ini.find("GridLabels=-1\r\n"), std::string::npos);
    GameDesk last(folder);
    EXPECT_FALSE(last.reader.Find(WithName("Legal Moves"))->Has("checked"));
    EXPECT_TRUE(last.reader.Find(WithName("Coordinates"))->Has("checked"));
    EXPECT_TRUE(last.reader.Find(WithId("lblGrid(0)"))->Has("showing"));
}

// A saved game in the middle of its play, opened from the command line.
class MarksOfASavedGame : public testing::TestWithParam<const char*> {};

TEST_P(MarksOfASavedGame, ShowItsLastMove) {
    GameFolder folder("[Options]\r\nAnimateMoves=0\r\nHistory=-1\r\n[View]\r\nLastMove=0\r\n");
    GameDesk desk(folder, {.arguments = {TARVETH_SOURCE_DIR "/tests/data/midgame-05.tsg"},
                           .environment = {{"GTK_THEME", GetParam()}}});
    const Picture unmarked = desk.Board();
    desk.Choose("V", "s");
    desk.WaitUntilAtRest();
    EXPECT_FALSE(desk.Board() == unmarked);
    const bool dark = std::string(GetParam()) == "Adwaita:dark";
    desk.KeepShot(dark ? "saved-game-dark" : "saved-game");
    desk.window.Resize(1300, 640);
    EXPECT_TRUE(WaitUntil([&] { return desk.window.ClientArea().width == 1300; }));
    desk.KeepShot(dark ? "saved-game-wide-dark" : "saved-game-wide");
}

INSTANTIATE_TEST_SUITE_P(Themes, MarksOfASavedGame, testing::Values("Adwaita", "Adwaita:dark"),
                         [](const auto& info) { return info.index == 0 ? "Light" : "Dark"; });

} // namespace
} // namespace tarveth::harness
