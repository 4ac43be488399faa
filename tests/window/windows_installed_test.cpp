// The game as a Windows player has it: installed, started from its menu entry, played by the mouse, and
// removed.

#include "tests/window/WineDesk.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <optional>

namespace tarveth::harness {
namespace {

namespace fs = std::filesystem;

std::string FileBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Runs a Windows program to its end and gives its exit status.
std::optional<int> ExitStatusOf(std::vector<std::string> command) {
    command.insert(command.begin(), WINE);
    return Process(
               {.command = command, .environment = WineEnvironment(), .output = WINE_PREFIX ".installed.log"})
        .WaitForExit(kWinePatience);
}

// The menu entry of the installed game; empty when there is none.
fs::path MenuEntry() {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(WINE_PREFIX) / "drive_c/users"))
        if (entry.path().filename() == "Tarveth.lnk")
            return entry.path();
    return {};
}

TEST(TheInstalledGame, IsStartedFromTheMenuPlayedByTheMouseAndRemoved) {
    const Wine wine;
    const fs::path folder = fs::path(WINE_PREFIX) / "drive_c/Games/Tarveth";
    fs::remove_all(folder);
    ASSERT_EQ(ExitStatusOf({INSTALLER, "/S", "/D=C:\\Games\\Tarveth"}), 0);
    ASSERT_FALSE(MenuEntry().empty());
    std::ofstream(folder / "tarveth.ini") << "[Options]\r\nAnimateMoves=0\r\n[Position]\r\nX=0\r\nY=0\r\n"
                                          << kBoardColours << kPlainBoard;
    {
        WineDesk desk({.path = WINE,
                       .arguments = {"start", "/unix", MenuEntry().string()},
                       .environment = WineEnvironment(),
                       .startsAnother = true});
        const Picture start = desk.Board();
        for (const char* move : {"4E4D", "4C4D", "6E6D", "3D3E", "7F7E"}) {
            ASSERT_TRUE(desk.Click(std::string(move, 2))) << move;
            ASSERT_TRUE(desk.Click(move + 2)) << move;
        }
        const Picture played = desk.Board();
        desk.KeepShot("windows-installed-played");

        desk.Choose("o", "o");
        const Window options = desk.program.WaitForWindow("Tarveth Options");
        desk.KeepShot("windows-installed-options");
        desk.screen.Key("Escape");
        ASSERT_TRUE(options.WaitUntilGone());

        EXPECT_TRUE(desk.window.Activate());
        desk.Choose("f", "a");
        const Window save = desk.program.WaitForWindow("Save Game As");
        desk.screen.Key("Ctrl+A");
        desk.screen.Type("five");
        desk.screen.Key("Return");
        ASSERT_TRUE(save.WaitUntilGone());
        EXPECT_TRUE(WaitUntil([&] { return !FileBytes(folder / "five.tsg").empty(); }));

        EXPECT_TRUE(desk.window.Activate());
        desk.Choose("f", "n");
        EXPECT_TRUE(WaitUntil([&] { return desk.Board() == start; }));
        desk.Choose("f", "l");
        const Window load = desk.program.WaitForWindow("Load Game");
        desk.screen.Key("Ctrl+A");
        desk.screen.Type("five.tsg");
        desk.screen.Key("Return");
        ASSERT_TRUE(load.WaitUntilGone());
        EXPECT_TRUE(WaitUntil([&] { return desk.Board() == played; }));
        EXPECT_TRUE(desk.Close());
        EXPECT_TRUE(desk.window.WaitUntilGone());
    }
    ExitStatusOf({(folder / "uninstall.exe").string(), "/S"});
    EXPECT_TRUE(WaitUntil([&] { return !fs::exists(folder / "uninstall.exe") && MenuEntry().empty(); }));
    EXPECT_FALSE(fs::exists(folder / "tarveth.exe"));
    EXPECT_TRUE(fs::exists(folder / "five.tsg")) << "games are the player's";
}

} // namespace
} // namespace tarveth::harness
