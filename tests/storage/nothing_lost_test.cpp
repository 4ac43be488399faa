// Saving where no file can be written: the game on the board stays, and the user is told.
#include "storage/modFileIO.h"
#include "tests/storage/FilesTable.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tarveth::test {
namespace {

namespace fs = std::filesystem;

TEST(NothingLost, WhenThePathIsAFolder) {
    FilesTable t;
    t.SaveAs("a.tsg");
    fs::create_directory(t.folder.File("folder.tsg"));
    EXPECT_TRUE(IsToldOnce(
        t, [&] { t.SaveAs("folder.tsg"); }, "folder.tsg"));
    EXPECT_TRUE(t.asked.questions.empty());
    fs::remove(t.folder.File("a.tsg"));
    fs::create_directory(t.folder.File("a.tsg"));
    EXPECT_TRUE(IsToldOnce(
        t, [&] { t.files.SaveGame(); }, "a.tsg"));
    EXPECT_TRUE(fs::is_directory(t.folder.File("a.tsg")));
    EXPECT_EQ(t.folder.FileCount(), 2U);
}

TEST(NothingLost, WhenTheFileIsDeletedUnderneath) {
    FilesTable t;
    t.SaveAs("a.tsg");
    fs::remove(t.folder.File("a.tsg"));
    PlayOneCapture(t);
    t.files.SaveGame();
    EXPECT_EQ(GetBytes(t.folder.File("a.tsg")), GameText(t.game, "a.tsg"));
    EXPECT_TRUE(t.port.boxes.empty());
}

TEST(NothingLost, WhenTheFolderIsDeletedUnderneath) {
    FilesTable t;
    fs::create_directory(t.folder.File("deep"));
    t.SaveAs("deep/a.tsg");
    fs::remove_all(t.folder.File("deep"));
    EXPECT_TRUE(IsToldOnce(
        t, [&] { t.files.SaveGame(); }, "deep/a.tsg"));
    EXPECT_EQ(t.folder.FileCount(), 0U);
}

TEST(NothingLost, OfALogThatCannotBeWrittenIsTold) {
    FilesTable t;
    t.settings.AutoSaveLog = -1;
    fs::create_directory(t.folder.File("lastgame.log"));
    t.record.BeginNewRecord();
    ASSERT_EQ(t.port.boxes.size(), 1U);
    EXPECT_TRUE(t.port.boxes.front().starts_with("The log of the last game is not saved.\n" +
                                                 t.folder.File("lastgame.log") + ": "));
    EXPECT_TRUE(fs::is_directory(t.folder.File("lastgame.log")));
}

} // namespace
} // namespace tarveth::test
