// What hands do at the board besides clicking: dragging, Escape and the keys of the commands; and what the
// board says to them.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

class Hands : public testing::Test {
protected:
    void Drag(std::string_view from, std::string_view to) {
        desk.screen.MovePointer(desk.SquareArea(from).Centre());
        desk.screen.Press(Button::Left);
        desk.screen.MovePointer(desk.SquareArea(to).Centre());
        desk.screen.Release(Button::Left);
    }

    GameFolder folder{"[Options]\r\nAnimateMoves=0\r\nHistory=-1\r\n"};
    GameDesk desk{folder};
};

TEST_F(Hands, DragAPieceToItsSquare) {
    Drag("4E", "4D");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    Drag("3D", "3D");
    ASSERT_TRUE(desk.PromptBecomes("Place piece"));
    desk.ClickSquare("3E");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Blue"));
    EXPECT_EQ(desk.History(), (std::vector<std::string>{"B:BP 4E-4D", "R:RP 3D-3E"}));
}

TEST_F(Hands, PutAPieceDownWithEscape) {
    desk.ClickSquare("4E");
    ASSERT_TRUE(desk.PromptBecomes("Place piece"));
    desk.screen.Key("Escape");
    EXPECT_TRUE(desk.PromptBecomes("Pick piece"));
    EXPECT_EQ(desk.Text("lblCurPlayer"), "Blue");
}

TEST_F(Hands, GiveCommandsByTheirKeys) {
    desk.Move("4E", "4D");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    const std::string file = (folder.Path() / "kept.TSG").string();
    desk.screen.Key("Ctrl+s");
    desk.AnswerFileDialog("Save Game", file);
    EXPECT_TRUE(WaitUntil([&] { return folder.Has("kept.TSG"); }));
    desk.screen.Key("Ctrl+n");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Blue"));
    EXPECT_TRUE(desk.History().empty());
    desk.screen.Key("Ctrl+o");
    desk.AnswerFileDialog("Load Game", file);
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
}

TEST_F(Hands, AreToldWhatIsAsked) {
    EXPECT_TRUE(desk.TextBecomes("lblAsked", "Blue is to move."));
    desk.ClickSquare("4E");
    EXPECT_TRUE(desk.TextBecomes("lblAsked", "Choose a square for the Blue Pawn."));
    desk.ClickSquare("8E");
    EXPECT_TRUE(desk.TextBecomes("lblTold", "Illegal move (too many squares)."));
    EXPECT_EQ(desk.Text("lblMessage"), "Illegal move (too many squares).");
    desk.KeepShot("refused-near-the-board");
    desk.ClickSquare("4D");
    EXPECT_TRUE(desk.TextBecomes("lblAsked", "Red is to move."));
    EXPECT_EQ(desk.Text("lblTold"), "");
}

TEST_F(Hands, ReadTheFirstLessonAgain) {
    const std::string lesson = desk.Text("lblMessage");
    desk.Move("4E", "4D");
    ASSERT_TRUE(desk.TextBecomes("lblMessage", ""));
    desk.Choose("V", "p");
    EXPECT_TRUE(desk.TextBecomes("lblMessage", lesson));
}

TEST_F(Hands, AreToldWhenAnotherBoardBegins) {
    desk.Choose("O", "d");
    EXPECT_TRUE(desk.TextBecomes("lblMessage", "The next game begins on the Draume Crown Board."));
    desk.Choose("O", "i");
    EXPECT_TRUE(desk.TextBecomes("lblMessage", "The next game begins on the Imperial Board."));
}

} // namespace
} // namespace tarveth::harness
