// Zones of control on the screen: the right mouse button, the Help menu and the Z key.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

constexpr std::uint32_t kMasterZone = 0xFF0000;
constexpr std::uint32_t kOfficerZone = 0xFFFF00;
constexpr const char* kClickOk = "Click OK to clear the zone and continue";

// The new game's zones on the Imperial Board.
constexpr const char* kBlueOfficerOn5F = "4E 5E 6E 4F 6F 4G 5G 6G";
constexpr const char* kRedMasterOn3A = "1A 5A 2B 4B 3C";

class Zones : public testing::Test {
protected:
    // The squares painted as zones, a Master's before an Officer's.
    static std::string Painted(const Picture& board) {
        return SquaresOfColour(board, kMasterZone) + '|' + SquaresOfColour(board, kOfficerZone);
    }

    void Press(std::string_view square, Button button) {
        desk.screen.MovePointer(desk.SquareArea(square).Centre());
        desk.screen.Press(button);
    }

    // What is painted while the right button is held down on a square.
    std::string HeldOn(std::string_view square) {
        Press(square, Button::Right);
        std::string painted = Painted(desk.Board());
        desk.screen.Release(Button::Right);
        return painted;
    }

    // The message box, out of the way of the board.
    Window BoxAside() {
        Window box = desk.MessageBox();
        EXPECT_EQ(desk.MessageBoxText(), kClickOk);
        const Rect frame = desk.window.Frame();
        box.MoveTo({frame.x + frame.width + 20, 20});
        EXPECT_TRUE(WaitUntil([&] { return box.Frame().x >= frame.x + frame.width; }));
        return box;
    }

    void Close(const Window& box, std::string_view key) {
        desk.screen.Key(key);
        EXPECT_TRUE(box.WaitUntilGone());
    }

    GameFolder folder;
    GameDesk desk{folder};
    Picture before = desk.Board();
};

TEST_F(Zones, AreShownWhileTheRightButtonIsDown) {
    Press("5F", Button::Right);
    const Picture shown = desk.Board();
    EXPECT_EQ(Painted(shown), std::string("|") + kBlueOfficerOn5F);
    desk.KeepShot("zone-of-an-officer");
    desk.screen.Release(Button::Right);
    EXPECT_TRUE(desk.Board() == before);
    EXPECT_EQ(desk.Text("lblMoveStatus"), "Pick piece");
}

TEST_F(Zones, FillTheirSquaresAndNothingElse) {
    Press("5F", Button::Right);
    desk.WaitUntilAtRest();
    const Picture zone = desk.screen.Capture(desk.SquareArea("4G")); // where an Officer stands
    const Picture piece = desk.screen.Capture(desk.SquareArea("5F"));
    desk.screen.Release(Button::Right);
    EXPECT_EQ(zone.ColourCount(), 1);
    desk.WaitUntilAtRest();
    EXPECT_TRUE(desk.screen.Capture(desk.SquareArea("5F")) == piece);
}

TEST_F(Zones, OfOpposingPiecesAreShownToo) {
    EXPECT_EQ(HeldOn("3A"), kRedMasterOn3A + std::string("|"));
    EXPECT_EQ(HeldOn("3D"), "|") << "a Pawn has no zone";
    EXPECT_EQ(HeldOn("1D"), "|") << "nobody stands there";
    EXPECT_TRUE(desk.Board() == before);
}

TEST_F(Zones, AreClearedWhereverTheButtonIsLetGo) {
    Press("3A", Button::Right);
    EXPECT_EQ(Painted(desk.Board()), kRedMasterOn3A + std::string("|"));
    desk.screen.MovePointer({0, 0});
    desk.screen.Release(Button::Right);
    EXPECT_TRUE(desk.Board() == before);
}

TEST_F(Zones, OfTheSelectedPieceAreShownFromTheMenu) {
    desk.ClickSquare("5F");
    ASSERT_TRUE(desk.PromptBecomes("Place piece"));
    const Picture selected = desk.Board();
    desk.Choose("H", "s");
    const Window box = BoxAside();
    EXPECT_EQ(Painted(desk.Board()), std::string("|") + kBlueOfficerOn5F);
    Close(box, "Return");
    EXPECT_TRUE(desk.Board() == selected);
    EXPECT_EQ(desk.Text("lblMoveStatus"), "Place piece");
}

TEST_F(Zones, OfNothingAreNothing) {
    desk.Choose("H", "s");
    Close(BoxAside(), "Escape");
    EXPECT_TRUE(desk.Board() == before);
    desk.Choose("H", "s");
    const Window box = BoxAside();
    EXPECT_EQ(Painted(desk.Board()), "|");
    desk.window.Close(); // the box comes first
    EXPECT_EQ(desk.MessageBoxText(), kClickOk);
    Close(box, "Return");
    EXPECT_TRUE(desk.program.Alive());
}

TEST_F(Zones, OfTheSideToMoveAreShownFromTheMenu) {
    desk.Choose("H", "z");
    const Window box = BoxAside();
    EXPECT_EQ(Painted(desk.Board()), "4F 5F 6F 3G 4G 5G 6G 7G 2H 3H 4H 6H 7H 8H|4E 5E 6E 3F 7F 5H");
    desk.KeepShot("zones-of-a-side");
    Close(box, "Return");
    EXPECT_TRUE(desk.Board() == before);
}

TEST_F(Zones, AreShownWhileZIsDown) {
    for (const char* key : {"Down", "Down", "Right"}) { // the first only shows the cursor, on 4E
        desk.screen.Key(key);
    }
    const Picture cursor = desk.Board();
    desk.screen.PressKey("z");
    EXPECT_TRUE(WaitUntil([&] { return Painted(desk.BoardNow()) == std::string("|") + kBlueOfficerOn5F; }));
    desk.screen.ReleaseKey("z");
    EXPECT_TRUE(desk.Board() == cursor);
}

TEST_F(Zones, AreClearedWhenTheKeyboardGoesElsewhere) {
    for (const char* key : {"Down", "Down", "Right"}) {
        desk.screen.Key(key);
    }
    desk.screen.PressKey("z");
    EXPECT_TRUE(WaitUntil([&] { return Painted(desk.BoardNow()) != "|"; }));
    desk.screen.Key("Alt+H");
    desk.screen.ReleaseKey("z");
    desk.screen.Key("Escape");
    EXPECT_TRUE(WaitUntil([&] { return Painted(desk.BoardNow()) == "|"; }));
}

TEST(ZonesTurnedOff, AreNotShownByTheRightButton) {
    const GameFolder folder("[Options]\r\nZOCRight=0\r\n");
    GameDesk desk(folder);
    const Picture before = desk.Board();
    desk.screen.MovePointer(desk.SquareArea("5F").Centre());
    desk.screen.Press(Button::Right);
    EXPECT_TRUE(desk.Board() == before);
    desk.screen.Release(Button::Right);
    EXPECT_TRUE(desk.Board() == before);
}

} // namespace
} // namespace tarveth::harness
