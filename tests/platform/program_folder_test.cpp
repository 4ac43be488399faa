#include "platform/program_folder.h"

#include "platform/file_exists.h"
#include "tests/platform/ForkedChild.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tarveth {
namespace {

namespace fs = std::filesystem;
using platform::FileExists;
using platform::ProgramFolder;
using platform::WritableFolder;

TEST(ProgramFolder, IsTheExecutablesOwnFolderWithASeparator) {
    EXPECT_EQ(ProgramFolder().back(), platform::PathSeparator());
    EXPECT_TRUE(FileExists(ProgramFolder() + fs::read_symlink("/proc/self/exe").filename().string()));
}

TEST(WritableFolder, IsTheProgramsOwnWhereAFileCanBeCreated) {
    const TempFolder folder;
    EXPECT_EQ(WritableFolder(folder.Name()), folder.Name());
    EXPECT_EQ(WritableFolder(folder.Path().string()), folder.Name());
    EXPECT_EQ(folder.FileCount(), 0u);
}

TEST(WritableFolder, IsTheUsersDataFolderForAnInstalledProgramAndIsCreated) {
    const TempFolder folder;
    EXPECT_TRUE(TrueInChild([&] {
        setenv("XDG_DATA_HOME", folder.File("data").c_str(), 1);
        return WritableFolder("/proc/") == folder.File("data/tarveth/") &&
               fs::is_directory(folder.File("data/tarveth"));
    }));
    EXPECT_TRUE(TrueInChild([&] {
        setenv("XDG_DATA_HOME", "relative", 1);
        setenv("HOME", folder.File("home").c_str(), 1);
        return WritableFolder("/proc/") == folder.File("home/.local/share/tarveth/");
    }));
}

TEST(WritableFolder, IsTheProgramsOwnAgainWhenNothingCanBeWritten) {
    EXPECT_TRUE(TrueInChild([] {
        setenv("XDG_DATA_HOME", "/proc/nowhere", 1);
        return WritableFolder("/proc") == "/proc/";
    }));
    EXPECT_TRUE(TrueInChild([] {
        unsetenv("XDG_DATA_HOME");
        unsetenv("HOME");
        return WritableFolder("/proc/") == "/proc/";
    }));
}

TEST(FileExists, IsTrueForAFileOnly) {
    const TempFolder folder;
    PutBytes(folder.File("a"), "x");
    EXPECT_TRUE(FileExists(folder.File("a")));
    EXPECT_FALSE(FileExists(folder.File("b")));
    EXPECT_FALSE(FileExists(folder.Path().string()));
    EXPECT_FALSE(FileExists(folder.File("a") + "/b"));
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FileExists(std::string(10'000, 'x')));
}

} // namespace
} // namespace tarveth
