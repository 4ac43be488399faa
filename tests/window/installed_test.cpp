// The program in a folder that cannot be written, as one that is installed for everybody: where its dialogs
// save, and what it says of files there.

#include "storage/modFileIO.h"
#include "tests/TestGame.h"
#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

class InstalledProgram : public testing::Test {
protected:
    InstalledProgram() {
        std::filesystem::create_directories(home.Path() / "data/tarveth");
        folder.Write("old.tsg", GameText(test::TestGame().game, "old.tsg"));
    }

    // Makes the folder read-only; before, a test puts into it what is installed.
    GameDeskOptions Installed(const std::vector<std::string>& arguments = {}) const {
        GameDeskOptions options = InReadOnlyFolder(folder, (home.Path() / "data").string());
        options.arguments = arguments;
        return options;
    }

    GameFolder folder;
    GameFolder home;
};

TEST_F(InstalledProgram, ProposesToSaveAShippedSchemeInTheUsersOwnFolder) {
    const std::string shipped = (folder.Path() / "blue.tps").string();
    folder.Write("blue.tps", "[Blue]\r\n[Red]\r\n");
    home.Write("data/tarveth/tarveth.ini", "[Pictures]\r\nPictureScheme=" + shipped + "\r\n");
    GameDesk desk(folder, Installed());
    desk.Choose("O", "o");
    desk.program.WaitForWindow("Tarveth Options");
    for (int page = 0; page < 3; ++page) {
        desk.screen.Key("Down");
    }
    ASSERT_TRUE(desk.TextBecomes("txtPictureScheme", shipped));
    desk.WaitUntilAtRest();
    desk.screen.Click(desk.Place("btnSavePictureScheme").Centre());
    desk.TakeProposedFile("Save Picture Scheme As");
    EXPECT_TRUE(desk.TextBecomes("txtPictureScheme", (home.Path() / "data/tarveth/blue.tps").string()));
    EXPECT_NE(home.Read("data/tarveth/blue.tps").find("[Blue]\r\n1Blue="), std::string::npos);
    EXPECT_EQ(folder.Read("blue.tps"), "[Blue]\r\n[Red]\r\n");
}

TEST_F(InstalledProgram, ProposesToSaveAGameFromThereInTheUsersOwnFolder) {
    GameDesk desk(folder, Installed({(folder.Path() / "old.tsg").string()}));
    desk.Choose("F", "a");
    desk.TakeProposedFile("Save Game As");
    EXPECT_TRUE(home.Has("data/tarveth/old.tsg"));
}

TEST_F(InstalledProgram, SaysWhatToDoAboutAFileThatItCouldOnlyOverwriteInPlace) {
    const std::string game = (folder.Path() / "old.tsg").string();
    const std::string before = folder.Read("old.tsg");
    GameDesk desk(folder, Installed({game}));
    desk.Move("4E", "4D");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    desk.Choose("F", "s");
    const Window box = desk.MessageBox();
    EXPECT_EQ(desk.MessageBoxText(),
              "The game is not saved.\n" + game +
                  ": cannot be written, since no file can be created in its folder; choose "
                  "another folder (Permission denied).");
    desk.KeepShot("cannot-be-overwritten");
    desk.screen.Key("Return");
    EXPECT_TRUE(box.WaitUntilGone());
    EXPECT_EQ(folder.Read("old.tsg"), before);
}

} // namespace
} // namespace tarveth::harness
