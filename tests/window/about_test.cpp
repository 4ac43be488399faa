// The About window of the real program.

#include "tests/window/GameDesk.h"
#include "version.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tarveth::harness {
namespace {

class About : public testing::Test {
protected:
    GameFolder folder;
    GameDesk desk{folder};
};

TEST_F(About, TellsTheVersionInTheMiddleOfTheScreen) {
    desk.Choose("H", "a");
    const Window about = desk.program.WaitForWindow("About Tarveth");
    EXPECT_EQ(desk.Text("lblVersion"), std::string("Tarveth ") + kVersion);
    EXPECT_NE(desk.Text("Label1").find("Tarveth authors"), std::string::npos);

    const Rect screen = desk.screen.Area();
    const Rect frame = about.Frame();
    EXPECT_LE(std::abs(frame.Centre().x - screen.Centre().x), 1);
    EXPECT_LE(std::abs(frame.Centre().y - screen.Centre().y), 20) << "but for half a title bar";
    EXPECT_LE(std::abs(desk.Place("btnOkay").Centre().x - about.ClientArea().Centre().x), 1);
    EXPECT_GT(desk.screen.Capture(desk.Place("Picture1")).ColourCount(), 20);

    desk.screen.Click(desk.Place("btnOkay").Centre());
    EXPECT_TRUE(about.WaitUntilGone());
    EXPECT_EQ(desk.program.WindowTitles().size(), 1U);
}

TEST_F(About, ClosesByEnterAndEscape) {
    for (const char* key : {"Return", "Escape"}) {
        EXPECT_TRUE(desk.window.Activate());
        desk.Choose("H", "a");
        const Window about = desk.program.WaitForWindow("About Tarveth");
        desk.screen.Key(key);
        EXPECT_TRUE(about.WaitUntilGone()) << key;
    }
}

} // namespace
} // namespace tarveth::harness
