// Mouse and keyboard over the visible board.
#include "tests/TestGame.h"
#include "tests/display/DisplayGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

constexpr double kEdge = 256; // of the visible board; squares of 32

Square Pending(const DisplayGame& g) {
    return g.game.PendingSquare();
}

// The pending square after the left button was let go at (x, y).
Square LetGoAt(double x, double y) {
    DisplayGame g;
    g.mouse.MouseUp(MouseButton::Left, x, y);
    return Pending(g);
}

} // namespace

TEST(BoardMouse, TheLeftButtonLetGoDepositsTheSquareUnderThePointer) {
    EXPECT_EQ(LetGoAt(0, 0), (Square{1, 1}));
    EXPECT_EQ(LetGoAt(31, 31), (Square{1, 1}));
    EXPECT_EQ(LetGoAt(32, 31), (Square{2, 1}));
    EXPECT_EQ(LetGoAt(100, 200), (Square{4, 7}));
    EXPECT_EQ(LetGoAt(255, 255), (Square{8, 8}));
}

TEST(BoardMouse, PositionsAreRoundedToWholePixelsHalvesToTheEvenOne) {
    EXPECT_EQ(LetGoAt(31.5, 5), (Square{2, 1}));
    EXPECT_EQ(LetGoAt(31.4, 5), (Square{1, 1}));
    EXPECT_EQ(LetGoAt(-0.5, 5), (Square{1, 1}));
    EXPECT_EQ(LetGoAt(255.4, 5), (Square{8, 1}));
}

TEST(BoardMouse, OutsideTheSquaresNothingIsDeposited) {
    for (const double outside : {-1.0, -1000.0, kEdge, kEdge + 31, 1e6}) {
        EXPECT_EQ(LetGoAt(outside, 5), Square{}) << outside;
        EXPECT_EQ(LetGoAt(5, outside), Square{}) << outside;
        EXPECT_EQ(LetGoAt(outside, outside), Square{}) << outside;
    }
}

TEST(BoardMouse, AClickOutsideTellsNothing) {
    DisplayGame g;
    const std::string message = g.port.message;
    g.mouse.MouseUp(MouseButton::Left, -5, 300);
    EXPECT_EQ(g.port.beeps, 0);
    EXPECT_EQ(g.port.message, message);
    EXPECT_FALSE(g.main.HasWork());
}

TEST(BoardMouse, TheStripLeftByRoundingIsOutside) {
    DisplayGame g;
    g.board.SetDisplaySize(260, 97); // squares of 32: the last 4 pixels belong to none
    g.mouse.MouseUp(MouseButton::Left, 257, 5);
    EXPECT_EQ(Pending(g), Square{});
    g.mouse.MouseUp(MouseButton::Left, 255, 5);
    EXPECT_EQ(Pending(g), (Square{8, 1}));
}

TEST(BoardMouse, SquaresGoByTheSizeOfTheVisibleBoard) {
    DisplayGame g;
    g.board.SetDisplaySize(768, 288);
    g.mouse.MouseUp(MouseButton::Left, 96, 767);
    EXPECT_EQ(Pending(g), (Square{2, 8}));
}

TEST(BoardMouse, PressingAButtonDepositsNothing) {
    DisplayGame g;
    for (const MouseButton button : {MouseButton::Left, MouseButton::Right, MouseButton::Other})
        g.mouse.MouseDown(button, 100, 200);
    EXPECT_EQ(Pending(g), Square{});
}

TEST(BoardMouse, OnlyTheLeftButtonDeposits) {
    DisplayGame g;
    g.mouse.MouseUp(MouseButton::Right, 100, 200);
    g.mouse.MouseUp(MouseButton::Other, 100, 200);
    EXPECT_EQ(Pending(g), Square{});
}

TEST(BoardMouse, AnyButtonLetGoClearsAZone) {
    for (const MouseButton button : {MouseButton::Left, MouseButton::Right, MouseButton::Other}) {
        DisplayGame g;
        const PixelBuffer before = g.board.picDisplay.Pixels;
        g.mouse.MouseDown(MouseButton::Right, 100, 230); // a Master
        ASSERT_FALSE(g.board.picDisplay.Pixels == before);
        g.mouse.MouseUp(button, -1, -1);
        EXPECT_TRUE(g.board.picDisplay.Pixels == before);
    }
}

TEST(BoardMouse, AZoneIsClearedAfterTheEndOfTheGameToo) {
    DisplayGame g;
    const PixelBuffer before = g.board.picDisplay.Pixels;
    g.mouse.MouseDown(MouseButton::Right, 100, 230);
    g.game.GameState = kGameOver;
    g.mouse.MouseUp(MouseButton::Left, 100, 230);
    EXPECT_TRUE(g.board.picDisplay.Pixels == before);
    EXPECT_EQ(Pending(g), Square{});
}

TEST(BoardMouse, OnlyTheRightButtonShowsAZone) {
    DisplayGame g;
    const PixelBuffer before = g.board.picDisplay.Pixels;
    g.mouse.MouseDown(MouseButton::Left, 100, 230);
    g.mouse.MouseDown(MouseButton::Other, 100, 230);
    EXPECT_TRUE(g.board.picDisplay.Pixels == before);
}

TEST(BoardMouse, ARightClickOutsideTheSquaresPaintsNothing) {
    DisplayGame g;
    SetPosition(g.game, "turn B|jail BM");
    g.board.RedrawBoard();
    const PixelBuffer before = g.board.picDisplay.Pixels;
    for (const double outside : {-20.0, 300.0})
        g.mouse.MouseDown(MouseButton::Right, outside, outside);
    EXPECT_TRUE(g.board.picDisplay.Pixels == before);
}

TEST(BoardMouse, OutOfTurnInANetworkGameALeftClickIsRefused) {
    DisplayGame g;
    g.net.NetConnected = g.net.InGame = true;
    g.net.PlayingBlue = false;
    g.Click({4, 5});
    EXPECT_EQ(g.port.message, "Not your turn.");
    EXPECT_EQ(Pending(g), Square{});
    EXPECT_EQ(g.game.GameState, kPickPiece);
}

TEST(BoardMouse, OutOfTurnARightClickIsNotRefused) {
    DisplayGame g;
    g.net.NetConnected = g.net.InGame = true;
    g.net.PlayingBlue = false;
    g.port.message.clear();
    g.mouse.MouseDown(MouseButton::Right, 100, 230);
    g.mouse.MouseUp(MouseButton::Right, 100, 230);
    EXPECT_EQ(g.port.message, "");
    EXPECT_EQ(g.port.beeps, 0);
}

TEST(BoardCursorKeys, TheFirstKeyOnlyShowsTheCursor) {
    DisplayGame g;
    EXPECT_FALSE(g.mouse.Cursor.Visible);
    g.mouse.MoveCursor(1, 0);
    EXPECT_TRUE(g.mouse.Cursor.Visible);
    EXPECT_EQ(g.mouse.Cursor.At, (Square{4, 5}));
    g.mouse.MoveCursor(1, 0);
    EXPECT_EQ(g.mouse.Cursor.At, (Square{5, 5}));
}

TEST(BoardCursorKeys, ItMovesOneSquareAKeyAndStopsAtTheEdges) {
    DisplayGame g;
    g.mouse.MoveCursor(0, 0);
    for (int i = 0; i < 20; ++i)
        g.mouse.MoveCursor(-1, 0);
    EXPECT_EQ(g.mouse.Cursor.At, (Square{1, 5}));
    for (int i = 0; i < 20; ++i)
        g.mouse.MoveCursor(0, -1);
    EXPECT_EQ(g.mouse.Cursor.At, (Square{1, 1}));
    for (int i = 0; i < 20; ++i)
        g.mouse.MoveCursor(1, 0);
    EXPECT_EQ(g.mouse.Cursor.At, (Square{8, 1}));
    for (int i = 0; i < 20; ++i)
        g.mouse.MoveCursor(0, 1);
    EXPECT_EQ(g.mouse.Cursor.At, (Square{8, 8}));
}

TEST(BoardCursorKeys, EnterDepositsItsSquareOnABoardOfAnySize) {
    for (const int edge : {64, 256, 260, 768})
        for (int column = 1; column <= kBoardSize; ++column) {
            DisplayGame g;
            g.board.SetDisplaySize(edge, edge * 3 / 8);
            g.mouse.Cursor = {true, {column, 9 - column}};
            g.mouse.PressCursor();
            EXPECT_EQ(Pending(g), (Square{column, 9 - column})) << edge;
        }
}

TEST(BoardCursorKeys, EnterDoesNothingBeforeTheCursorIsShown) {
    DisplayGame g;
    g.mouse.PressCursor();
    EXPECT_EQ(Pending(g), Square{});
}

TEST(BoardCursorKeys, AWholeMoveIsPlayedWithTheKeys) {
    DisplayGame g;
    g.mouse.MoveCursor(0, 0); // 4E, a Blue Pawn
    g.mouse.PressCursor();
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    g.mouse.MoveCursor(-1, 0);
    g.mouse.PressCursor();
    g.main.RunPasses();
    EXPECT_TRUE(g.game.Piece(12).StandsOn({3, 5}));
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(BoardCursorKeys, EnterIsRefusedAsAClickIs) {
    DisplayGame g;
    g.net.NetConnected = g.net.InGame = true;
    g.net.PlayingBlue = false;
    g.mouse.MoveCursor(0, 0);
    g.mouse.PressCursor();
    EXPECT_EQ(g.port.message, "Not your turn.");
}

TEST(BoardCursorKeys, ZShowsTheZoneWhileItIsHeld) {
    DisplayGame g;
    const PixelBuffer before = g.board.picDisplay.Pixels;
    g.mouse.Cursor = {true, {4, 8}};
    g.mouse.ShowCursorZone();
    const PixelBuffer zone = g.board.picDisplay.Pixels;
    EXPECT_FALSE(zone == before);
    g.mouse.ShowCursorZone(); // the key repeats
    EXPECT_TRUE(g.board.picDisplay.Pixels == zone);
    g.mouse.ReleaseCursorZone();
    EXPECT_TRUE(g.board.picDisplay.Pixels == before);
}

TEST(BoardCursorKeys, ZShowsTheZoneWithZOCRightOffToo) {
    DisplayGame g;
    g.settings.ZOCRight = 0; // is about the right button
    const PixelBuffer before = g.board.picDisplay.Pixels;
    g.mouse.Cursor = {true, {4, 8}};
    g.mouse.ShowCursorZone();
    EXPECT_FALSE(g.board.picDisplay.Pixels == before);
}

TEST(BoardCursorKeys, TheCursorGoesOnFromWhereTheMouseClicked) {
    DisplayGame g;
    g.ClickWithoutPass({7, 2});
    g.mouse.MoveCursor(0, 0);
    EXPECT_EQ(g.mouse.Cursor.At, (Square{7, 2}));
    g.mouse.MouseUp(MouseButton::Left, -5, 5);
    EXPECT_EQ(g.mouse.Cursor.At, (Square{7, 2}));
}

} // namespace tarveth::test
