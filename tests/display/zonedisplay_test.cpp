// Zones of control on the visible board. Pictures of one colour stand for the pieces, so that each pixel
// tells.
#include "tests/TestGame.h"
#include "tests/display/DisplayGame.h"

#include <gtest/gtest.h>

#include <set>

namespace tarveth::test {

namespace {

constexpr Pixel kRed = Rgb(255, 0, 0);
constexpr Pixel kYellow = Rgb(255, 255, 0);
const std::string kBoxText = "Click OK to clear the zone and continue";

// Notes what the board shows while the message box is open.
struct BoxWatcher : RecordingPort {
    std::function<void()> onBox;
    void ShowMessageBox(std::string_view text) override {
        RecordingPort::ShowMessageBox(text);
        if (onBox)
            onBox();
    }
};

struct ZoneGame : DisplayGame {
    BoxWatcher person;
    ZoneDisplay watched{game, board, person, display};
    PixelBuffer duringBox;

    explicit ZoneGame(std::string_view position, int edge = 256) {
        for (std::size_t i = 1; i <= 3; ++i)
            pictures.picBlue[i] = pictures.picRed[i] = PixelBuffer(32, 32, Rgb(9, 9, 9));
        SetPosition(game, position);
        board.SetDisplaySize(edge, edge * 3 / 8);
        board.RedrawBoard();
        person.onBox = [this] { duringBox = board.picDisplay.Pixels; };
    }
    void RightPress(Square square) {
        mouse.MouseDown(MouseButton::Right, MiddleOf(square.column), MiddleOf(square.row));
    }
    void RightRelease(Square square) {
        mouse.MouseUp(MouseButton::Right, MiddleOf(square.column), MiddleOf(square.row));
    }
};

// The squares that are wholly of one colour, as in "4D".
std::set<std::string> SquaresOf(const PixelBuffer& board, Pixel colour) {
    const int w = board.Width() / kBoardSize;
    std::set<std::string> squares;
    for (int column = 1; column <= kBoardSize; ++column)
        for (int row = 1; row <= kBoardSize; ++row) {
            bool all = true;
            for (int y = (row - 1) * w; y < row * w; ++y)
                for (int x = (column - 1) * w; x < column * w; ++x)
                    all = all && board.At(x, y) == colour;
            if (all)
                squares.insert(std::to_string(column) + static_cast<char>('A' + row - 1));
        }
    return squares;
}

int CountOf(const PixelBuffer& board, Pixel colour) {
    int count = 0;
    for (int y = 0; y < board.Height(); ++y)
        for (int x = 0; x < board.Width(); ++x)
            count += board.At(x, y) == colour ? 1 : 0;
    return count;
}

using Names = std::set<std::string>;
const Names kMasterOn4D = {"4B", "5C", "6D", "5E", "4F", "3E", "2D", "3C"};
const Names kOfficerOn4D = {"4C", "5C", "5D", "5E", "4E", "3E", "3D", "3C"};

} // namespace

TEST(ZoneDisplay, ASquareIsPaintedToItsLastPixelAndNotBeyond) {
    for (const int edge : {256, 320, 768}) {
        ZoneGame g("turn B", edge);
        const int w = edge / 8;
        PixelBuffer expected = g.board.picDisplay.Pixels;
        for (int y = 4 * w; y <= 5 * w - 1; ++y)
            for (int x = 2 * w; x <= 3 * w - 1; ++x)
                expected.At(x, y) = kRed;
        g.zones.PaintZoneSquare(3, 5, Master);
        EXPECT_TRUE(g.board.picDisplay.Pixels == expected) << edge;
    }
}

TEST(ZoneDisplay, TheSizeOfASquareIsRoundedToWholePixels) {
    ZoneGame g("turn B", 260); // 32.5 gives 32, a half going to the even one
    g.board.picDisplay.Clear();
    g.zones.PaintZoneSquare(2, 1, Officer);
    EXPECT_EQ(CountOf(g.board.picDisplay.Pixels, kYellow), 32 * 32);
    EXPECT_EQ(g.board.picDisplay.Pixels.At(32, 0), kYellow);
    EXPECT_EQ(g.board.picDisplay.Pixels.At(63, 31), kYellow);
    ZoneGame larger("turn B", 268); // 33.5 gives 34
    larger.board.picDisplay.Clear();
    larger.zones.PaintZoneSquare(2, 1, Officer);
    EXPECT_EQ(CountOf(larger.board.picDisplay.Pixels, kYellow), 34 * 34);
    EXPECT_EQ(larger.board.picDisplay.Pixels.At(67, 33), kYellow);
}

TEST(ZoneDisplay, MastersAreRedOfficersYellowAnythingElseNothing) {
    ZoneGame g("turn B");
    const PixelBuffer before = g.board.picDisplay.Pixels;
    for (const int kind : {0, 3, 4, -1})
        g.zones.PaintZoneSquare(2, 2, kind);
    EXPECT_TRUE(g.board.picDisplay.Pixels == before);
    g.zones.PaintZoneSquare(2, 2, Master);
    g.zones.PaintZoneSquare(3, 2, Officer);
    EXPECT_EQ(SquaresOf(g.board.picDisplay.Pixels, kRed), Names{"2B"});
    EXPECT_EQ(SquaresOf(g.board.picDisplay.Pixels, kYellow), Names{"3B"});
}

TEST(ZoneDisplay, AMastersZoneIsRedUntilItsBoxIsClosed) {
    ZoneGame g("turn B|BM 4D|RP 1A");
    const PixelBuffer before = g.board.picDisplay.Pixels;
    g.watched.ShowPieceZone(1);
    EXPECT_EQ(g.person.boxes, std::vector<std::string>{kBoxText});
    EXPECT_EQ(SquaresOf(g.duringBox, kRed), kMasterOn4D);
    EXPECT_EQ(CountOf(g.duringBox, kYellow), 0);
    EXPECT_TRUE(g.board.picDisplay.Pixels == before);
}

TEST(ZoneDisplay, AnOfficersZoneIsYellowUntilItsBoxIsClosed) {
    ZoneGame g("turn B|BO 4D");
    const PixelBuffer before = g.board.picDisplay.Pixels;
    g.watched.ShowPieceZone(4);
    EXPECT_EQ(SquaresOf(g.duringBox, kYellow), kOfficerOn4D);
    EXPECT_EQ(CountOf(g.duringBox, kRed), 0);
    EXPECT_TRUE(g.board.picDisplay.Pixels == before);
}

TEST(ZoneDisplay, TheZoneIsShownBeforeTheBoxAsks) {
    ZoneGame g("turn B|BM 4D");
    int refreshes = 0;
    g.person.onBox = [&] { refreshes = g.display.refreshes; };
    const int before = g.display.refreshes;
    g.watched.ShowPieceZone(1);
    EXPECT_GT(refreshes, before);
}

TEST(ZoneDisplay, APawnPaintsNothingAndStillGivesTheBox) {
    ZoneGame g("turn B|BP 4D");
    const PixelBuffer before = g.board.picDisplay.Pixels;
    g.watched.ShowPieceZone(8);
    EXPECT_EQ(g.person.boxes, std::vector<std::string>{kBoxText});
    EXPECT_TRUE(g.duringBox == before);
}

TEST(ZoneDisplay, NoPieceSelectedGivesTheBoxAlone) {
    for (const int index : {0, -1, 27}) {
        ZoneGame g("turn B|BM 4D");
        const PixelBuffer before = g.board.picDisplay.Pixels;
        g.watched.ShowPieceZone(index);
        EXPECT_EQ(g.person.boxes, std::vector<std::string>{kBoxText});
        EXPECT_TRUE(g.duringBox == before);
    }
}

TEST(ZoneDisplay, APieceInTheJailPaintsNothing) {
    ZoneGame g("turn B|jail BM");
    const PixelBuffer before = g.board.picDisplay.Pixels;
    g.watched.ShowPieceZone(1);
    EXPECT_TRUE(g.duringBox == before);
}

TEST(ZoneDisplay, AllZonesAreThoseOfTheSideToMove) {
    ZoneGame g("turn R|BM 4D|RO 1A");
    g.watched.ShowAllZones();
    EXPECT_EQ(g.person.boxes, std::vector<std::string>{kBoxText});
    EXPECT_EQ(SquaresOf(g.duringBox, kYellow), (Names{"2A", "2B", "1B"}));
    EXPECT_EQ(CountOf(g.duringBox, kRed), 0);
}

TEST(ZoneDisplay, WhereAMasterAndAnOfficerReachTheSquareIsRed) {
    for (const std::string_view position : {"turn B|BM 4D|BO 6C", "turn R|RO 6C|RM 4D"}) {
        ZoneGame g(position);
        const PixelBuffer before = g.board.picDisplay.Pixels;
        g.watched.ShowAllZones();
        EXPECT_EQ(SquaresOf(g.duringBox, kRed), kMasterOn4D); // 5C and 6D are the Officer's too
        EXPECT_EQ(SquaresOf(g.duringBox, kYellow), (Names{"6B", "7B", "7C", "7D", "5D", "5B"}));
        EXPECT_TRUE(g.board.picDisplay.Pixels == before);
    }
}

TEST(ZoneDisplay, ARightClickShowsTheZoneUntilTheButtonIsLetGo) {
    ZoneGame g("turn B|BM 4D");
    const PixelBuffer before = g.board.picDisplay.Pixels;
    g.RightPress({4, 4});
    EXPECT_EQ(SquaresOf(g.board.picDisplay.Pixels, kRed), kMasterOn4D);
    EXPECT_TRUE(g.port.boxes.empty());
    g.RightRelease({8, 8}); // wherever that is
    EXPECT_TRUE(g.board.picDisplay.Pixels == before);
    EXPECT_EQ(g.game.ClickX, 0);
}

TEST(ZoneDisplay, ARightClickOnAnOpposingPieceShowsItsOwnZone) {
    ZoneGame g("turn B|RO 4D");
    g.RightPress({4, 4});
    EXPECT_EQ(SquaresOf(g.board.picDisplay.Pixels, kYellow), kOfficerOn4D);
}

TEST(ZoneDisplay, ARightClickOnAnEmptySquarePaintsNothingAndTheReleaseRedraws) {
    ZoneGame g("turn B|BM 4D");
    const PixelBuffer before = g.board.picDisplay.Pixels;
    g.RightPress({1, 1});
    EXPECT_TRUE(g.board.picDisplay.Pixels == before);
    g.board.picBoard.Pixels.Fill(kRed);
    g.RightRelease({1, 1});
    EXPECT_TRUE(g.board.picBoard.Pixels == before);
}

TEST(ZoneDisplay, WithZOCRightOffARightClickDoesNothing) {
    ZoneGame g("turn B|BM 4D");
    g.settings.ZOCRight = 0;
    const PixelBuffer before = g.board.picDisplay.Pixels;
    const int refreshes = g.display.refreshes;
    g.RightPress({4, 4});
    EXPECT_TRUE(g.board.picDisplay.Pixels == before);
    g.RightRelease({4, 4});
    EXPECT_EQ(g.display.refreshes, refreshes); // no redraw either
}

TEST(ZoneDisplay, AZoneIsClearedOnce) {
    ZoneGame g("turn B|BM 4D");
    g.RightPress({4, 4});
    g.RightRelease({4, 4});
    const int refreshes = g.display.refreshes;
    g.RightRelease({4, 4});
    EXPECT_EQ(g.display.refreshes, refreshes);
}

TEST(ZoneDisplay, ShowingZonesLeavesTheGameAlone) {
    ZoneGame g("turn B|BM 4D|RO 6C");
    const Game before = g.game;
    g.watched.ShowPieceZone(1);
    g.watched.ShowAllZones();
    g.RightPress({6, 3});
    g.RightRelease({6, 3});
    EXPECT_TRUE(g.game == before);
}

} // namespace tarveth::test
