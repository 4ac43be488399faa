#include "storage/window_positions.h"

#include "tests/platform/IniBytes.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarveth {
namespace {

class WindowPositions : public testing::Test {
protected:
    WindowPosition LoadedFrom(std::string_view bytes) {
        PutBytes(file, bytes);
        WindowPosition position = {10, 20, 3000, 4000};
        LoadMainPosition(position, ini, folder.Name());
        return position;
    }

    TempFolder folder;
    std::string file = folder.File("tarveth.ini");
    modINI ini{[](const std::string& text, const std::string&) { ADD_FAILURE() << text; }};
};

TEST_F(WindowPositions, ANumberHasABlankOrAMinusAndAtMostSevenDigits) {
    EXPECT_EQ(TwipsText(1200), " 1200");
    EXPECT_EQ(TwipsText(1200.5F), " 1200.5");
    EXPECT_EQ(TwipsText(-15), "-15");
    EXPECT_EQ(TwipsText(0), " 0");
    EXPECT_EQ(TwipsText(-0.0F), " 0");
    EXPECT_EQ(TwipsText(0.1F), " 0.1");
    EXPECT_EQ(TwipsText(1234.5678F), " 1234.568");
    EXPECT_EQ(TwipsText(9999999), " 9999999");
}

TEST_F(WindowPositions, ABlankBeforeTheNumberMakesNoDifference) {
    EXPECT_EQ(LoadedFrom("[Position]\r\nX= 1200\r\nY=-15\r\nW=  9000.5\r\nH= 1E+4\r\n"),
              (WindowPosition{1200, -15, 9000.5F, 10000}));
    EXPECT_EQ(LoadedFrom("[Position]\r\nX=1200\r\nY=-15\r\nW=9000.5\r\nH=1E+4\r\n"),
              (WindowPosition{1200, -15, 9000.5F, 10000}));
}

TEST_F(WindowPositions, AMissingKeyKeepsWhatTheWindowHas) {
    EXPECT_EQ(LoadedFrom(""), (WindowPosition{10, 20, 3000, 4000}));
    EXPECT_EQ(LoadedFrom("[Position]\r\nY=7\r\n"), (WindowPosition{10, 7, 3000, 4000}));
}

TEST_F(WindowPositions, AValueWithoutANumberIs0) {
    EXPECT_EQ(LoadedFrom("[Position]\r\nX=left\r\nY=\r\n"), (WindowPosition{0, 0, 3000, 4000}));
}

TEST_F(WindowPositions, AnAbsurdValueKeepsWhatTheWindowHas) {
    EXPECT_EQ(LoadedFrom("[Position]\r\nX=1e999\r\nY=-10000001\r\nW=1e39\r\nH=10000000\r\n"),
              (WindowPosition{10, 20, 3000, 1e7F}));
}

TEST_F(WindowPositions, OfBothWindowsHaveSectionsAndKeysOfTheirOwn) {
    SaveMainPosition({1, 2, 3, 4}, ini, folder.Name());
    SaveClientPosition({-5, 6, 7.5F, 8}, ini, folder.Name());
    EXPECT_TRUE(ini.IniFlush());
    EXPECT_EQ(WithoutBlanksBeforeValues(GetBytes(file)),
              "[Position]\r\nX=1\r\nY=2\r\nW=3\r\nH=4\r\n"
              "[ClientPosition]\r\nL=-5\r\nT=6\r\nW=7.5\r\nH=8\r\n");
    WindowPosition main;
    WindowPosition client;
    LoadMainPosition(main, ini, folder.Name());
    LoadClientPosition(client, ini, folder.Name());
    EXPECT_EQ(main, (WindowPosition{1, 2, 3, 4}));
    EXPECT_EQ(client, (WindowPosition{-5, 6, 7.5F, 8}));
}

// A screen of 1280 by 1024 pixels, and a second one to the left of it.
constexpr ScreenRect kScreens[] = {{0, 0, 19200, 15360}, {-15000, 0, 15000, 12000}};

TEST(KeepOnScreen, AWindowWhoseTitleBarShowsStaysWhereItIs) {
    for (const WindowPosition& position : {WindowPosition{0, 0, 9000, 7000},
                                           {-9000 + 900, 100, 9000, 7000},
                                           {-7000, 300, 9000, 7000},
                                           {19200 - 900, 15000, 9000, 7000},
                                           {100, -449, 9000, 7000},
                                           {100, 100, 90000, 70000},
                                           {50, 50, 600, 400}})
        EXPECT_EQ(KeepOnScreen(position, kScreens), position) << position.Left << " " << position.Top;
}

TEST(KeepOnScreen, AWindowWhoseTitleBarIsHiddenComesOntoTheNearestScreen) {
    EXPECT_EQ(KeepOnScreen({19200 - 899, 100, 9000, 7000}, kScreens),
              (WindowPosition{10200, 100, 9000, 7000}));
    EXPECT_EQ(KeepOnScreen({100, 15360, 9000, 7000}, kScreens), (WindowPosition{100, 8360, 9000, 7000}));
    EXPECT_EQ(KeepOnScreen({100, -450, 9000, 7000}, kScreens), (WindowPosition{100, 0, 9000, 7000}));
    EXPECT_EQ(KeepOnScreen({-30000, 5000, 9000, 7000}, kScreens), (WindowPosition{-15000, 5000, 9000, 7000}));
    EXPECT_EQ(KeepOnScreen({-1e7F, 1e7F, 9000, 7000}, kScreens), (WindowPosition{-15000, 5000, 9000, 7000}));
}

TEST(KeepOnScreen, AWindowLargerThanTheScreenShowsItsUpperLeftCorner) {
    EXPECT_EQ(KeepOnScreen({30000, 20000, 50000, 40000}, kScreens), (WindowPosition{0, 0, 50000, 40000}));
}

TEST(KeepOnScreen, WithoutScreensNothingIsMoved) {
    EXPECT_EQ(KeepOnScreen({30000, 20000, 500, 400}, {}), (WindowPosition{30000, 20000, 500, 400}));
}

} // namespace
} // namespace tarveth
