// The installer for Windows, run by Wine: it installs all files, and the uninstaller removes only those.
#include "tests/window/Process.h"
#include "tests/window/Wine.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tarveth::harness {
namespace {

namespace fs = std::filesystem;

const fs::path kDrive = fs::path(WINE_PREFIX) / "drive_c";

struct Outcome {
    std::optional<int> exitCode;
    std::string output;
};

Outcome RunWindowsProgram(std::vector<std::string> command) {
    const std::string output = WINE_PREFIX ".installer.log";
    fs::remove(output);
    command.insert(command.begin(), WINE);
    Process process({.command = command, .environment = WineEnvironment(), .output = output});
    const std::optional<int> exitCode = process.WaitForExit(kWinePatience);
    std::ifstream bytes(output, std::ios::binary);
    return {exitCode, {std::istreambuf_iterator<char>(bytes), {}}};
}

std::set<std::string> FilesIn(const fs::path& folder) {
    std::set<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.insert(fs::relative(entry.path(), folder).string());
    return files;
}

// Whether some user has a menu entry of the program.
bool IsInTheMenu() {
    for (const auto& entry : fs::recursive_directory_iterator(kDrive / "users"))
        if (entry.path().filename() == "Tarveth.lnk")
            return true;
    return false;
}

// Gives the command with which the desktop opens files of this ending; empty when there is none.
std::string OpeningCommand(const std::string& ending) {
    const Outcome type = RunWindowsProgram({"reg", "query", "HKCU\\Software\\Classes\\" + ending, "/ve"});
    if (type.output.find("Tarveth.Game") == std::string::npos)
        return {};
    const Outcome open = RunWindowsProgram(
        {"reg", "query", "HKCU\\Software\\Classes\\Tarveth.Game\\shell\\open\\command", "/ve"});
    return open.output;
}

struct Installer : testing::Test {
    const fs::path folder = kDrive / "Games" / "Tarveth";

    Installer() {
        static const Wine allTheTime;
        fs::remove_all(folder);
        const Outcome installed = RunWindowsProgram({INSTALLER, "/S", "/D=C:\\Games\\Tarveth"});
        EXPECT_EQ(installed.exitCode, 0) << installed.output;
    }

    // The uninstaller runs on for a moment after its process has ended.
    bool Uninstall() const {
        RunWindowsProgram({(folder / "uninstall.exe").string(), "/S"});
        return WaitUntil([this] { return !fs::exists(folder / "uninstall.exe") && !IsInTheMenu(); });
    }
};

TEST_F(Installer, BringsThePicturesSoundsManualAndPrograms) {
    const std::set<std::string> files = FilesIn(folder);
    for (const char* file : {"tarveth.exe", "tarveth-lobby.exe", "tarveth.hlp", "tarveth.cnt", "tarveth.htb",
                             "servers.txt", "LICENSE.txt", "uninstall.exe"})
        EXPECT_TRUE(files.contains(file)) << file;
    EXPECT_TRUE(fs::exists(folder / "pics"));
    EXPECT_TRUE(fs::exists(folder / "sounds"));
}

TEST_F(Installer, MakesAMenuEntryAndRegistersSavedGames) {
    EXPECT_TRUE(IsInTheMenu());
    EXPECT_NE(OpeningCommand(".tsg").find("\"C:\\Games\\Tarveth\\tarveth.exe\" \"%1\""), std::string::npos);
}

TEST_F(Installer, LeavesSettingsAndGamesWhenItInstallsOverAnOlderVersion) {
    for (const char* file : {"tarveth.ini", "mine.tsg", "pics/mine.bmp"})
        std::ofstream(folder / file) << "mine";
    std::ofstream(folder / "servers.txt") << "of the older version";
    const Outcome again = RunWindowsProgram({INSTALLER, "/S", "/D=C:\\Games\\Tarveth"});
    EXPECT_EQ(again.exitCode, 0) << again.output;
    for (const char* file : {"tarveth.ini", "mine.tsg", "pics/mine.bmp"})
        EXPECT_EQ(fs::file_size(folder / file), 4U) << file;
    EXPECT_NE(fs::file_size(folder / "servers.txt"), 20U) << "is the new version's";
}

TEST_F(Installer, TakesAwayWhatItHasBroughtAndNothingElse) {
    for (const char* file : {"tarveth.ini", "mine.tsg", "pics/mine.bmp"})
        std::ofstream(folder / file) << "mine";
    EXPECT_TRUE(Uninstall());
    EXPECT_EQ(FilesIn(folder), (std::set<std::string>{"mine.tsg", "pics/mine.bmp", "tarveth.ini"}));
    EXPECT_EQ(OpeningCommand(".tsg"), "");
}

TEST_F(Installer, LeavesNoFolderWhereThePlayerHasPutNothing) {
    EXPECT_TRUE(Uninstall());
    EXPECT_TRUE(WaitUntil([this] { return !fs::exists(folder); }));
}

TEST_F(Installer, LeavesAnotherProgramTheSavedGamesThatItHasTaken) {
    RunWindowsProgram({"reg", "add", "HKCU\\Software\\Classes\\.tsg", "/ve", "/d", "Another.Game", "/f"});
    EXPECT_TRUE(Uninstall());
    const Outcome type = RunWindowsProgram({"reg", "query", "HKCU\\Software\\Classes\\.tsg", "/ve"});
    EXPECT_NE(type.output.find("Another.Game"), std::string::npos) << type.output;
    RunWindowsProgram({"reg", "delete", "HKCU\\Software\\Classes\\.tsg", "/f"});
}

} // namespace
} // namespace tarveth::harness
