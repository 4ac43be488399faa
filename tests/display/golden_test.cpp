// Compares whole pictures with the golden ones in tests/golden.
#include "display/bitmap.h"
#include "tests/GoldenPicture.h"
#include "tests/TestGame.h"
#include "tests/display/DisplayGame.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

// A window onto the larger picture.
PixelBuffer Part(const PixelBuffer& picture, int left, int top, int width, int height) {
    PixelBuffer part(width, height);
    part.CopyFrom(picture, -left, -top);
    return part;
}

void WoodenBoard(Settings& settings) {
    settings.BoardBlack = {139, 90, 43};
    settings.BoardWhite = {238, 207, 161};
}

// A port that calls onBox while the message box is open.
struct BoxPort : RecordingPort {
    std::function<void()> onBox;
    void ShowMessageBox(std::string_view) override { onBox(); }
};

} // namespace

TEST(Golden, ImperialBoardAtTheStart) {
    const DisplayGame g(32);
    EXPECT_EQ(CompareWithGolden("imperial-start-32", g.board.picDisplay.Pixels), "");
}

TEST(Golden, DraumeCrownBoardAtTheStart) {
    DisplayGame g(32, kDraumeCrownBoard);
    WoodenBoard(g.settings);
    g.board.RedrawBoard();
    EXPECT_EQ(CompareWithGolden("draume-crown-start-wood-32", g.board.picDisplay.Pixels), "");
}

TEST(Golden, BuiltInPiecesAtTheirOwnSize) {
    const DisplayGame g(64);
    EXPECT_EQ(CompareWithGolden("red-camp-builtin-64", Part(g.board.picDisplay.Pixels, 64, 0, 256, 192)), "");
}

TEST(Golden, JailWithMoreThanOneRow) {
    DisplayGame g(32);
    SetPosition(g.game, "turn B|jail BP RP BO RO BM RM BP BP RP RO RP");
    g.board.RedrawBoard();
    EXPECT_EQ(CompareWithGolden("jail-eleven-captured-32", g.board.picDisplayJail.Pixels), "");
}

TEST(Golden, ZonesOfTheSideToMove) {
    DisplayGame g(32);
    BoxPort person;
    ZoneDisplay zones(g.game, g.board, person, g.display);
    person.onBox = [&] {
        EXPECT_EQ(CompareWithGolden("zones-blue-imperial-32", g.board.picDisplay.Pixels), "");
    };
    zones.ShowAllZones();
}

TEST(Golden, ZoneUnderARightClick) {
    DisplayGame g(32);
    SetPosition(g.game, "turn B|BM 4D|RO 5C|BP 4F|RP 2B");
    g.board.RedrawBoard();
    g.mouse.MouseDown(MouseButton::Right, g.MiddleOf(4), g.MiddleOf(4));
    EXPECT_EQ(CompareWithGolden("zone-master-4d-32", Part(g.board.picDisplay.Pixels, 0, 0, 224, 224)), "");
}

TEST(Golden, PieceHalfWayOverTheCornerOfFourSquares) {
    DisplayGame g(32);
    SetPosition(g.game, "turn B|BP 4E|RO 5E|BO 4D");
    g.display.onYield = [&] {
        g.board.AnimationTick();
        if (g.game.Piece(8).X == Currency::FromRaw(45'000)) {
            EXPECT_EQ(
                CompareWithGolden("pawn-gliding-4e-5d-32", Part(g.board.picDisplay.Pixels, 64, 64, 128, 128)),
                "");
        }
    };
    g.board.AnimateMove(8, {5, 4});
}

TEST(Golden, BoardAtOneAndAHalfTimesItsSize) {
    DisplayGame g(32);
    WoodenBoard(g.settings);
    g.board.SetDisplaySize(384, 144);
    g.board.RedrawBoard();
    EXPECT_EQ(CompareWithGolden("imperial-32-shown-at-48", Part(g.board.picDisplay.Pixels, 96, 0, 192, 144)),
              "");
}

TEST(Golden, BoardAtThreeEighthsOfItsSize) {
    DisplayGame g(64);
    WoodenBoard(g.settings);
    g.board.SetDisplaySize(192, 72);
    g.board.RedrawBoard();
    EXPECT_EQ(CompareWithGolden("imperial-64-shown-at-24", g.board.picDisplay.Pixels), "");
}

TEST(GoldenPicture, ADifferenceOfOneStepInOnePixelChangesTheFile) {
    DisplayGame g(32);
    const std::string before = WriteBitmap(g.board.picDisplay.Pixels);
    g.board.picDisplay.Pixels.At(100, 200) ^= 1;
    EXPECT_NE(WriteBitmap(g.board.picDisplay.Pixels), before);
}

TEST(GoldenPicture, APictureOfAnyWidthComesBackFromItsFile) {
    for (const int width : {8, 9, 10, 11}) {
        PixelBuffer picture(width, 9, Rgb(1, 2, 3));
        picture.At(width - 1, 0) = Rgb(200, 100, 50);
        const std::string bytes = WriteBitmap(picture);
        EXPECT_EQ(ReadBitmap({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}), picture);
    }
}

} // namespace tarveth::test
