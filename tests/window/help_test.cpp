// "Help on Tarveth": the manual in its window, and what is said when it is not there.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace tarveth::harness {
namespace {

constexpr const char* kTitle = "Tarveth Manual";
constexpr const char* kModule = "tarveth-help.so";
constexpr const char* kBook = "tarveth.htb";

// A file that is built beside the program, put beside the test's program.
void Bring(const GameFolder& folder, const std::string& name) {
    const auto built = std::filesystem::path(PROGRAM_UNDER_TEST).parent_path() / name;
    std::filesystem::create_symlink(built, folder.Path() / name);
}

void OpenHelp(GameDesk& desk) {
    desk.Choose("H", "h");
}

Window OpenManual(GameDesk& desk) {
    OpenHelp(desk);
    const Window help = desk.program.WaitForWindow(kTitle);
    EXPECT_TRUE(WaitUntil([&] { return desk.screen.Active() == help.Id(); }))
        << "the manual comes to the front with the keyboard";
    desk.WaitUntilAtRest();
    return help;
}

TEST(Help, OpensTheManualAndLeavesTheGameRunningWhenItCloses) {
    const GameFolder folder;
    Bring(folder, kModule);
    Bring(folder, kBook);
    GameDesk desk(folder);
    Window help = OpenManual(desk);
    for (const char* entry : {"Rule of Reflection", "zone of control", "tarveth.ini"}) {
        EXPECT_TRUE(desk.reader.WaitFor(WithName(entry))) << entry << " is not in the index";
    }
    EXPECT_GT(help.Capture().ColourCount(), 20);

    help.Close();
    EXPECT_TRUE(help.WaitUntilGone());
    ASSERT_TRUE(desk.window.Activate());
    desk.ClickSquare("4E");
    EXPECT_TRUE(desk.PromptBecomes("Place piece"));
    EXPECT_EQ(desk.Close(), 0);
}

TEST(Help, IsOneWindowHoweverOftenItIsOpenedAndEscapeClosesIt) {
    const GameFolder folder;
    Bring(folder, kModule);
    Bring(folder, kBook);
    // Memory that is used after it was freed is noticed.
    GameDesk desk(folder, {.environment = {{"MALLOC_PERTURB_", "165"}}});
    OpenManual(desk);
    ASSERT_TRUE(desk.window.Activate());
    const Window help = OpenManual(desk);
    EXPECT_EQ(desk.program.Windows().size(), 2U);
    desk.screen.Key("Escape");
    EXPECT_TRUE(help.WaitUntilGone());
    ASSERT_TRUE(desk.window.Activate());
    OpenManual(desk);
    EXPECT_EQ(desk.Close(), 0) << "the manual closes with the game";
}

TEST(Help, LeavesNoFileAnywhere) {
    const GameFolder folder;
    Bring(folder, kModule);
    Bring(folder, kBook);
    GameDesk desk(folder);
    const auto files = [&] {
        std::vector<std::string> names;
        for (const std::filesystem::path& place :
             {std::filesystem::path(std::getenv("HOME")), folder.Path()}) {
            for (const auto& file : std::filesystem::recursive_directory_iterator(place)) {
                names.push_back(file.path().string());
            }
        }
        std::sort(names.begin(), names.end());
        return names;
    };
    const std::vector<std::string> before = files();
    Window help = OpenManual(desk);
    help.Close();
    EXPECT_TRUE(help.WaitUntilGone());
    EXPECT_EQ(files(), before);
}

TEST(Help, ThatIsMissingIsToldInOneMessage) {
    const GameFolder folder;
    Bring(folder, kModule);
    GameDesk desk(folder);
    OpenHelp(desk);
    const Window box = desk.MessageBox();
    EXPECT_EQ(desk.MessageBoxText(),
              "The manual is missing: there is no tarveth.htb in " + folder.Path().string() + "/.");
    desk.screen.Key("Return");
    EXPECT_TRUE(box.WaitUntilGone());
    EXPECT_TRUE(desk.program.Alive());
}

TEST(Help, ThatIsDamagedIsToldInOneMessage) {
    const GameFolder folder;
    Bring(folder, kModule);
    folder.Write(kBook, "PK no book at all");
    GameDesk desk(folder);
    OpenHelp(desk);
    const Window box = desk.MessageBox();
    EXPECT_EQ(desk.MessageBoxText(),
              "The manual cannot be read: " + (folder.Path() / kBook).string() + " is damaged.");
    desk.screen.Key("Return");
    EXPECT_TRUE(box.WaitUntilGone());
    EXPECT_TRUE(desk.program.Alive());
}

} // namespace
} // namespace tarveth::harness
