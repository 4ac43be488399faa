// The Windows program, run by Wine: whole games with the mouse, and the files that they leave.

#include "storage/modFileIO.h"
#include "tests/TestGame.h"
#include "tests/window/RecordedGame.h"
#include "tests/window/WineDesk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace tarveth::harness {
namespace {

constexpr std::uint32_t kLink = 0x0000FF; // to another page of the manual
constexpr std::uint32_t kViewersLink = 0x008000;

bool Holds(const Picture& picture, std::uint32_t colour) {
    return std::find(picture.pixels.begin(), picture.pixels.end(), colour) != picture.pixels.end();
}

class WindowsProgram : public testing::Test {
private:
    Wine wine_;
};

// One step of a recorded game, as its line tells it.
void PlayStep(WineDesk& desk, const std::string& step) {
    if (step.size() == 1) {
        const Window question = desk.program.WaitForWindow("Return");
        desk.KeepShot("windows-question");
        if (step == "P") {
            desk.screen.Key("Tab"); // the Officer has the keyboard
        }
        desk.screen.Key("space");
        ASSERT_TRUE(question.WaitUntilGone()) << step;
    } else if (step.starts_with("  ")) {
        ASSERT_TRUE(desk.Click(step.substr(6))) << step;
    } else {
        ASSERT_TRUE(desk.Click(step.substr(5, 2))) << step;
        ASSERT_TRUE(desk.Click(step.substr(8, 2))) << step;
    }
}

void PlayToTheEnd(const std::string& name, int layout) {
    const RecordedGame game(TARVETH_SOURCE_DIR "/tests/data/" + name + ".moves");
    const WineFolder folder("GameBoard=" + std::to_string(layout) + "\r\n", kPlainBoard);
    WineDesk desk(folder);
    const Picture start = desk.Board();
    for (const std::string& step : game.steps) {
        ASSERT_NO_FATAL_FAILURE(PlayStep(desk, step));
    }
    desk.KeepShot("windows-end-of-" + name);
    EXPECT_EQ(folder.Read("lastgame.log"), "") << "the log waits for the next game";
    desk.Choose("f", "n");
    EXPECT_TRUE(WaitUntil([&] { return desk.Board() == start; }));
    EXPECT_EQ(folder.Read("lastgame.log"), AsLog(game.History()));
    EXPECT_TRUE(desk.Close());
}

TEST_F(WindowsProgram, PlaysAGameOnTheImperialBoardToItsVictory) {
    PlayToTheEnd("imperial", 1);
}

TEST_F(WindowsProgram, PlaysAGameOnTheDraumeCrownBoardToItsVictory) {
    PlayToTheEnd("draume", 2);
}

TEST_F(WindowsProgram, GoesOnWithAGameWhoseNameTheCodePageLacks) {
    constexpr char kName[] = "\xe5\xb0\x86\xe6\xa3\x8b.tsg";
    test::TestGame table;
    table.Move("4E", "4D");
    const WineFolder folder;
    folder.Write(kName, GameText(table.game, "elsewhere"));
    WineDesk desk(folder, {kName});
    ASSERT_TRUE(desk.Click("4C"));
    ASSERT_TRUE(desk.Click("4D"));
    table.Move("4C", "4D");
    const std::string moved = GameText(table.game, "");
    desk.Choose("f", "s");
    EXPECT_TRUE(WaitUntil([&] {
        const std::string saved = folder.Read(kName);
        return saved.size() > moved.size() && saved.ends_with(moved.substr(moved.find("\r\n 2 \r\n")));
    })) << folder.Read(kName);
    EXPECT_NE(folder.Read(kName).find(kName), std::string::npos) << "its title is its path";
    EXPECT_TRUE(desk.Close());
}

TEST_F(WindowsProgram, PutsTheEndingInSmallLettersBehindAName) {
    const WineFolder folder;
    WineDesk desk(folder);
    desk.Choose("f", "a");
    const Window dialog = desk.program.WaitForWindow("Save Game As", kWinePatience);
    desk.KeepShot("windows-save-as");
    desk.screen.Key("Ctrl+A");
    desk.screen.Type("mygame");
    desk.screen.Key("Return");
    ASSERT_TRUE(dialog.WaitUntilGone());
    EXPECT_TRUE(WaitUntil([&] { return !folder.Read("mygame.tsg").empty(); }));
    EXPECT_TRUE(desk.Close());
}

TEST_F(WindowsProgram, WritesItsSettingsWhenItCloses) {
    const WineFolder folder("Nickname=J\xfcrgen\r\n");
    WineDesk desk(folder);
    EXPECT_TRUE(desk.Close());
    const std::string ini = folder.Read("tarveth.ini");
    EXPECT_NE(ini.find("\r\nNickname=J\xfcrgen\r\n"), std::string::npos) << ini;
    EXPECT_NE(ini.find("\r\nSoundVictor=\r\n"), std::string::npos) << ini;
    EXPECT_NE(ini.find("[ClientOptions]\r\n"), std::string::npos) << ini;
}

TEST_F(WindowsProgram, OpensTheManualInTheSystemsViewer) {
    const WineFolder folder;
    folder.Bring("tarveth.hlp");
    folder.Bring("tarveth.cnt");
    folder.Bring("tarveth.htb");
    WineDesk desk(folder);
    desk.Choose("h", "h");
    const auto viewer = [&]() -> std::optional<Window> {
        for (const WindowId id : desk.screen.TopLevels()) {
            if (Window other(desk.screen, id); id != desk.window.Id() && other.Visible()) {
                return other;
            }
        }
        return {};
    };
    const auto showsChapters = [&] {
        auto other = viewer(); // it may be the menu, which is about to go
        return other && Holds(other->Capture(), kViewersLink);
    };
    ASSERT_TRUE(WaitUntil(showsChapters, kWinePatience)) << "the list of chapters";
    EXPECT_EQ(desk.program.Windows().size(), 1U) << "the viewer is a program of its own";
    desk.KeepShot("windows-help-viewer");
    viewer()->Close();
    EXPECT_TRUE(WaitUntil([&] { return !viewer(); }));
    EXPECT_TRUE(desk.Close());
}

TEST_F(WindowsProgram, OpensTheManualInItsOwnWindowWhereTheViewerHasNoFile) {
    const WineFolder folder;
    folder.Bring("tarveth.htb");
    WineDesk desk(folder);
    desk.Choose("h", "h");
    Window manual = desk.program.WaitForWindow("Tarveth Manual");
    EXPECT_TRUE(WaitUntil([&] { return Holds(manual.Capture(), kLink); })) << "the list of chapters";
    desk.KeepShot("windows-help");
    manual.Close();
    EXPECT_TRUE(manual.WaitUntilGone());
    EXPECT_TRUE(desk.Close());
}

} // namespace
} // namespace tarveth::harness
