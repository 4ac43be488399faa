// Where everything stands in the main window, at many sizes, on dense screens and in a dark theme.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tarveth::harness {
namespace {

constexpr const char* kEverythingShown = "[Options]\r\nGridLabels=-1\r\nHistory=-1\r\nAnimateMoves=0\r\n";

bool Overlap(const Rect& a, const Rect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

bool Within(const Rect& inner, const Rect& outer) {
    return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

std::string GridName(int index) {
    return "lblGrid(" + std::to_string(index) + ")";
}

class MainWindowLayout {
public:
    MainWindowLayout(GameDesk& desk, int scale) : desk_(desk), scale_(scale) {
        for (const AccessibleNode& node : desk.reader.Read()) {
            if (!node.id.empty() && node.Has("showing")) {
                const Rect& at = node.extents;
                places_[node.id] = {at.x * scale, at.y * scale, at.width * scale, at.height * scale};
            }
        }
    }

    void ExpectNothingInTheWayOfAnother() const {
        const Rect inside = desk_.window.ClientArea();
        for (auto one = places_.begin(); one != places_.end(); ++one) {
            EXPECT_TRUE(Within(one->second, inside)) << one->first;
            for (auto other = std::next(one); other != places_.end(); ++other) {
                EXPECT_FALSE(Overlap(one->second, other->second)) << one->first << " and " << other->first;
            }
        }
    }

    void ExpectAnEvenBoard() const {
        const Rect& board = places_.at("picDisplay");
        EXPECT_EQ(board.width, board.height);
        EXPECT_EQ(board.width % 8, 0);
        const Rect& jail = places_.at("picDisplayJail");
        EXPECT_EQ(jail.width % 8, 0);
        EXPECT_EQ(jail.height, jail.width / 8 * 3);
        EXPECT_LE(jail.width, board.width);
    }

    // Letters beside the middles of the rows, numbers above the middles of the columns.
    void ExpectGridLabelsAtTheirSquares() const {
        const int most = scale_; // half a pixel of rounding on each side
        for (int i = 0; i < 8; ++i) {
            const std::string square{static_cast<char>('1' + i), static_cast<char>('A' + i)};
            const Point middle = desk_.SquareArea(square).Centre();
            const Point row = places_.at(GridName(i)).Centre();
            const Point column = places_.at(GridName(i + 8)).Centre();
            EXPECT_LE(std::abs(row.y - middle.y), most) << "row " << square;
            EXPECT_LE(std::abs(column.x - middle.x), most) << "column " << square;
        }
    }

    void ExpectClicksToFindTheirSquares() const {
        for (const char* square : {"4H", "3F", "7F"}) {
            for (const char* prompt : {"Place piece", "Pick piece"}) {
                desk_.ClickSquare(square);
                EXPECT_TRUE(desk_.PromptBecomes(prompt)) << square;
            }
        }
    }

private:
    GameDesk& desk_;
    int scale_;
    std::map<std::string, Rect> places_;
};

// `width` and `height` are of the window's inside, in pixels of the screen.
void ExpectGoodLayoutAt(GameDesk& desk, int width, int height, int scale) {
    SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
    desk.window.MoveTo({0, 0});
    desk.window.Resize(width, height);
    EXPECT_TRUE(WaitUntil([&] {
        const Rect inside = desk.window.ClientArea();
        return inside.width == width && inside.height == height;
    }));
    desk.WaitUntilAtRest();
    const MainWindowLayout layout(desk, scale);
    layout.ExpectNothingInTheWayOfAnother();
    layout.ExpectAnEvenBoard();
    layout.ExpectGridLabelsAtTheirSquares();
    layout.ExpectClicksToFindTheirSquares();
}

struct Surroundings {
    const char* name;
    std::map<std::string, std::string> environment;
    int scale;
    std::vector<Point> sizes;
};

class Layout : public testing::TestWithParam<Surroundings> {};

TEST_P(Layout, LeavesEverythingItsPlace) {
    const Surroundings& around = GetParam();
    const GameFolder folder(kEverythingShown);
    GameDesk desk(folder, {.environment = around.environment, .scale = around.scale});
    desk.Move("4E", "4D");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    desk.Move("3D", "3E");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Blue"));
    for (const Point& size : around.sizes) {
        ExpectGoodLayoutAt(desk, size.x, size.y, around.scale);
        desk.KeepShot(std::string("layout-") + around.name + "-" + std::to_string(size.x));
    }
}

INSTANTIATE_TEST_SUITE_P(
    MainWindow, Layout,
    testing::Values(
        Surroundings{
            "plain", {}, 1, {{640, 480}, {700, 900}, {1021, 767}, {1300, 500}, {1400, 980}, {1500, 1100}}},
        Surroundings{"dark", {{"GTK_THEME", "Adwaita:dark"}}, 1, {{640, 480}, {900, 800}, {1300, 500}}},
        Surroundings{"dense", {}, 2, {{1280, 960}, {1500, 1100}}},
        Surroundings{"large-type", {{"GDK_DPI_SCALE", "1.5"}}, 1, {{960, 720}, {1300, 1000}}}),
    [](const auto& info) {
        std::string name = info.param.name;
        std::erase(name, '-');
        return name;
    });

TEST(LayoutLimits, AreTheSmallestSizeOfTheWindow) {
    const GameFolder folder(kEverythingShown);
    GameDesk desk(folder);
    desk.window.Resize(100, 100);
    EXPECT_TRUE(WaitUntil([&] { return desk.window.ClientArea().width < 700; }));
    desk.WaitUntilAtRest();
    const MainWindowLayout layout(desk, 1);
    layout.ExpectNothingInTheWayOfAnother();
    layout.ExpectAnEvenBoard();
}

} // namespace
} // namespace tarveth::harness
