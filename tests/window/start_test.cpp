// How the program starts where something is in its way: what it says, and that the game is played all the
// same.

#include "storage/modFileIO.h"
#include "tests/TestGame.h"
#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace tarveth::harness {
namespace {

std::string FileBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(AProgramWithoutADesktop, SaysSoAndEndsWithOne) {
    const GameFolder folder;
    const std::filesystem::path output = folder.Path() / "output";
    Process process({.command = {folder.Program().string()},
                     .environment = {{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}},
                     .output = output});
    EXPECT_EQ(process.WaitForExit(), 1);
    EXPECT_EQ(FileBytes(output),
              "tarveth: no desktop is found to show the game's window on. Start it from a desktop, "
              "or set DISPLAY or WAYLAND_DISPLAY to one.\n");
}

TEST(AProgramThatStarts, TellsOfALogThatCannotBeWrittenOverItsWindow) {
    const GameFolder folder("[Options]\r\nAutoSaveLog=-1\r\n");
    std::filesystem::create_directory(folder.Path() / "lastgame.log");
    GameDesk desk(folder);
    const Window box = desk.MessageBox();
    EXPECT_EQ(desk.MessageBoxText(), "The log of the last game is not saved.\n" +
                                         (folder.Path() / "lastgame.log").string() +
                                         ": cannot be written (Is a directory).");
    EXPECT_EQ(desk.program.WindowTitles().size(), 2U) << "the window is there already";
    desk.screen.Key("Return");
    ASSERT_TRUE(box.WaitUntilGone());
    EXPECT_TRUE(desk.window.Activate());
    desk.WaitUntilAtRest();
    desk.Move("4E", "4D");
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    EXPECT_EQ(desk.Close(), 0);
}

TEST(AProgramThatStarts, TellsEverythingInOneMessage) {
    const GameFolder folder("[Options]\r\nAutoSaveLog=-1\r\n[Pictures]\r\n1Blue=text.bmp\r\n");
    folder.Write("text.bmp", "This is not a picture.");
    std::filesystem::create_directory(folder.Path() / "lastgame.log");
    GameDesk desk(folder, {.arguments = {"none.tsg"}});
    const Window box = desk.MessageBox();
    const std::string text = desk.MessageBoxText();
    const auto picture = text.find("text.bmp is not a BMP file. The built-in picture is used.\n\n");
    const auto log = text.find("The log of the last game is not saved.\n");
    const auto game = text.find("\n\nThe game is not loaded.\n");
    EXPECT_LT(picture, log) << text;
    EXPECT_LT(log, game) << text;
    EXPECT_LT(game, text.size()) << text;
    desk.KeepShot("start-problems");
    desk.screen.Key("Return");
    ASSERT_TRUE(box.WaitUntilGone());
    desk.WaitUntilAtRest();
    EXPECT_EQ(desk.program.Windows().size(), 1U) << "one message, not more";
}

TEST(AProgramThatStarts, OpensAGameWhoseNameIsNotUtf8WithoutAWarning) {
    const std::string name = "J\xF6rg.tsg";
    const GameFolder folder;
    test::TestGame table;
    table.Move("4E", "4D");
    folder.Write(name, GameText(table.game, "x"));
    GameDesk desk(folder, {.arguments = {name}});
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    desk.Move("4C", "4D");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Blue"));
    desk.Choose("F", "s");
    EXPECT_TRUE(WaitUntil([&] { return folder.Read(name).find("R:RO 4C-4D cBP") != std::string::npos; }));
    desk.KeepShot("title-not-utf8");
    EXPECT_EQ(desk.Close(), 0);
    EXPECT_EQ(desk.program.Output(), "");
}

} // namespace
} // namespace tarveth::harness
