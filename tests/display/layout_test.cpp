// The layout of the main window in many sizes, with fonts of many sizes.
#include "display/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tarveth::test {

namespace {

struct Place {
    std::string name;
    LayoutBox box;
};

// The scale of a screen, in percent of an ordinary one: that of everything, and that of letters in addition.
struct Scale {
    int screen = 100;
    int letters = 100;
};

LayoutMetrics MetricsAt(Scale scale, bool gridLabels) {
    const auto scaled = [scale](int pixels) { return pixels * scale.screen / 100; };
    const auto lettered = [scale, scaled](int pixels) { return scaled(pixels) * scale.letters / 100; };
    LayoutMetrics metrics;
    metrics.margin = scaled(12);
    metrics.gap = scaled(8);
    metrics.gridWidth = gridLabels ? lettered(12) + scaled(8) : 0;
    metrics.gridHeight = gridLabels ? lettered(17) + scaled(2) : 0;
    metrics.rowHeight = lettered(17) + scaled(4);
    metrics.playerHeight = lettered(26) + scaled(4);
    metrics.askedHeight = lettered(20) + scaled(2);
    metrics.historyWidth = std::max(scaled(300), lettered(200));
    metrics.captionWidth = lettered(50) + scaled(10);
    metrics.sideWidth = std::max(scaled(220), lettered(154));
    metrics.messageLines = lettered(1400) / metrics.sideWidth + 1;
    return metrics;
}

std::vector<Place> PlacesOf(const MainLayout& layout, bool gridLabels) {
    std::vector<Place> places = {{"display", layout.display},
                                 {"displayJail", layout.displayJail},
                                 {"asked", layout.asked},
                                 {"told", layout.told},
                                 {"playerCaption", layout.playerCaption},
                                 {"player", layout.player},
                                 {"statusCaption", layout.statusCaption},
                                 {"status", layout.status},
                                 {"message", layout.message},
                                 {"separator", layout.separator},
                                 {"history", layout.history}};
    if (gridLabels)
        for (std::size_t i = 0; i < layout.grid.size(); ++i)
            places.push_back({"grid " + std::to_string(i), layout.grid[i]});
    return places;
}

bool Overlap(const LayoutBox& a, const LayoutBox& b) {
    return a.x < b.Right() && b.x < a.Right() && a.y < b.Bottom() && b.y < a.Bottom();
}

struct Window {
    int width, height;
    Scale scale;
    bool gridLabels;

    LayoutMetrics Metrics() const { return MetricsAt(scale, gridLabels); }
    MainLayout Layout() const { return LayOutMainWindow(width, height, Metrics()); }
    // As large on its screen as the given pixels on an ordinary one.
    bool IsAtLeast(int ordinaryWidth, int ordinaryHeight) const {
        return width * 100 >= ordinaryWidth * scale.screen && height * 100 >= ordinaryHeight * scale.screen;
    }
    std::string Name() const {
        return std::to_string(width) + " x " + std::to_string(height) + " at " +
               std::to_string(scale.screen) + " %, letters " + std::to_string(scale.letters) +
               (gridLabels ? " % with labels" : " %");
    }
};

// Insides from 560 by 400 to 2560 by 1600, on screens and with letters of several sizes.
std::vector<Window> AllWindows() {
    std::vector<Window> windows;
    for (const Scale scale : {Scale{100, 100}, {150, 100}, {200, 100}, {100, 150}, {100, 200}})
        for (const bool gridLabels : {false, true})
            for (int width = 560; width <= 2560; width += 80)
                for (int height = 400; height <= 1600; height += 40) {
                    const Window window{width, height, scale, gridLabels};
                    if (window.IsAtLeast(560, 400))
                        windows.push_back(window);
                }
    return windows;
}

std::vector<Window> WindowsFrom640By480() {
    std::vector<Window> windows = AllWindows();
    std::erase_if(windows, [](const Window& window) { return !window.IsAtLeast(640, 480); });
    return windows;
}

} // namespace

TEST(Layout, NothingOverlaps) {
    for (const Window& window : AllWindows()) {
        const std::vector<Place> places = PlacesOf(window.Layout(), window.gridLabels);
        for (std::size_t i = 0; i < places.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                ASSERT_FALSE(Overlap(places[i].box, places[j].box))
                    << places[i].name << " and " << places[j].name << " in " << window.Name();
    }
}

TEST(Layout, From640By480OnNothingIsOutside) {
    for (const Window& window : WindowsFrom640By480()) {
        for (const Place& place : PlacesOf(window.Layout(), window.gridLabels)) {
            const LayoutBox& box = place.box;
            ASSERT_TRUE(box.x >= 0 && box.y >= 0 && box.width >= 0 && box.height >= 0 &&
                        box.Right() <= window.width && box.Bottom() <= window.height)
                << place.name << " in " << window.Name();
        }
    }
}

TEST(Layout, From640By480OnThereIsRoomForTheLabelsAndAFewLinesOfHistory) {
    for (const Window& window : WindowsFrom640By480()) {
        const MainLayout layout = window.Layout();
        const LayoutMetrics metrics = window.Metrics();
        if (window.scale.letters > 100)
            continue; // large letters in a small window leave less
        ASSERT_GE(layout.message.width, metrics.sideWidth) << window.Name();
        ASSERT_GE(layout.message.height, metrics.rowHeight * metrics.messageLines) << window.Name();
        ASSERT_GE(layout.history.height, metrics.rowHeight * 3) << window.Name();
    }
}

TEST(Layout, TheBoardIsSquareAndDividesIntoEightEqualSquares) {
    for (const Window& window : AllWindows()) {
        const MainLayout layout = window.Layout();
        ASSERT_EQ(layout.display.width, layout.display.height) << window.Name();
        ASSERT_EQ(layout.display.width % 8, 0) << window.Name();
        ASSERT_GE(layout.display.width, 64) << window.Name();
    }
}

TEST(Layout, TheJailIsThreeRowsOfEvenSquaresNoLargerThanTheBoards) {
    for (const Window& window : AllWindows()) {
        const MainLayout layout = window.Layout();
        const int square = layout.displayJail.width / 8;
        ASSERT_EQ(layout.displayJail.width, square * 8) << window.Name();
        ASSERT_EQ(layout.displayJail.height, square * 3) << window.Name();
        ASSERT_GE(square, 8) << window.Name();
        ASSERT_LE(square, layout.display.width / 8) << window.Name();
    }
}

TEST(Layout, TheJailIsBelowTheBoardOrBesideIt) {
    for (const Window& window : AllWindows()) {
        const MainLayout layout = window.Layout();
        const LayoutMetrics metrics = window.Metrics();
        const LayoutBox& jail = layout.displayJail;
        if (layout.jailBelow) {
            ASSERT_EQ(jail.x, layout.display.x) << window.Name();
            ASSERT_EQ(jail.y, layout.told.Bottom() + metrics.gap) << window.Name();
            ASSERT_EQ(layout.asked.y, layout.display.Bottom() + metrics.gap) << window.Name();
            ASSERT_GE(jail.width, layout.display.width / 2 - 8) << window.Name();
        } else {
            ASSERT_GT(jail.x, layout.display.Right()) << window.Name();
            ASSERT_EQ(layout.asked.y, layout.display.y) << window.Name();
            ASSERT_EQ(layout.told, LayoutBox{}) << window.Name();
        }
    }
}

// Only the room for the labels beside it, and the window's edge, limit the board.
TEST(Layout, TheBoardIsTheLargestThatFits) {
    for (const Window& window : AllWindows()) {
        const LayoutMetrics m = window.Metrics();
        const int larger = window.Layout().display.width + 8;
        const int width = 3 * m.margin + m.gridWidth + larger + m.gap + m.sideWidth;
        ASSERT_TRUE(width > window.width || 2 * m.margin + m.gridHeight + larger > window.height)
            << window.Name();
    }
}

TEST(Layout, AWideWindowGivesItsHeightToTheBoard) {
    EXPECT_GE(LayOutMainWindow(1300, 500, MetricsAt({}, false)).display.height, 450);
    EXPECT_GE(LayOutMainWindow(1400, 980, MetricsAt({}, false)).display.height, 882);
}

TEST(Layout, ATallWindowHasTheJailAsLargeAsTheBoard) {
    const MainLayout layout = LayOutMainWindow(700, 1000, MetricsAt({}, false));
    EXPECT_TRUE(layout.jailBelow);
    EXPECT_EQ(layout.displayJail.width, layout.display.width);
}

TEST(Layout, GridLabelsStandInTheMiddleOfTheirSquares) {
    for (const Window& window : AllWindows()) {
        if (!window.gridLabels)
            continue;
        const MainLayout layout = window.Layout();
        const LayoutMetrics metrics = window.Metrics();
        const int square = layout.display.width / 8;
        for (std::size_t i = 0; i < 8; ++i) {
            const int offset = static_cast<int>(i) * square;
            const LayoutBox& letter = layout.grid[i];
            ASSERT_EQ(letter.y, layout.display.y + offset) << window.Name();
            ASSERT_EQ(letter.height, square);
            ASSERT_EQ(letter.width, metrics.gridWidth);
            ASSERT_EQ(letter.Right(), layout.display.x);
            const LayoutBox& number = layout.grid[i + 8];
            ASSERT_EQ(number.x, layout.display.x + offset) << window.Name();
            ASSERT_EQ(number.width, square);
            ASSERT_EQ(number.height, metrics.gridHeight);
            ASSERT_EQ(number.Bottom(), layout.display.y);
        }
    }
}

TEST(Layout, WithoutGridLabelsTheBoardTakesTheirRoom) {
    const MainLayout with = LayOutMainWindow(800, 600, MetricsAt({}, true));
    const MainLayout without = LayOutMainWindow(800, 600, MetricsAt({}, false));
    EXPECT_GT(without.display.width, with.display.width);
    EXPECT_EQ(without.display.x, 12);
    EXPECT_EQ(without.display.y, 12);
}

TEST(Layout, AWindowMadeForABoardShowsItAtThatSize) {
    for (const int percent : {100, 150, 200})
        for (const bool gridLabels : {false, true})
            for (const int edge : {256, 512, 768}) {
                const LayoutMetrics metrics = MetricsAt({percent, 100}, gridLabels);
                const LayoutBox inside = SizeForBoard(edge, metrics);
                EXPECT_EQ(LayOutMainWindow(inside.width, inside.height, metrics).display.width, edge);
            }
}

TEST(Layout, TheHistoryIsAsWideAsItsTextNeeds) {
    const LayoutMetrics metrics = MetricsAt({}, false);
    EXPECT_EQ(LayOutMainWindow(1400, 480, metrics).history.width, metrics.historyWidth);
    EXPECT_EQ(LayOutMainWindow(700, 480, metrics).message.width,
              LayOutMainWindow(700, 480, metrics).history.width);
}

TEST(Layout, NoWindowIsTooSmallToBeLaidOut) {
    for (const int size : {0, 1, 50, 200}) {
        const MainLayout layout = LayOutMainWindow(size, size, MetricsAt({200, 100}, true));
        for (const Place& place : PlacesOf(layout, true)) {
            EXPECT_GE(place.box.width, 0) << place.name;
            EXPECT_GE(place.box.height, 0) << place.name;
        }
        EXPECT_GE(layout.display.width, 64);
    }
}

} // namespace tarveth::test
