// The folder that an installed program writes to, asked in a child process with an environment of its own.
#include "platform/program_folder.h"

#include "tests/platform/ForkedChild.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tarveth {
namespace {

namespace fs = std::filesystem;
using platform::WritableFolder;

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

TEST(WritableFolder, IsNeverOneOfTheSystemsNotEvenForRoot) {
    const TempFolder folder;
    for (const char* installed : {"/usr/", "/usr/bin", "/opt/"})
        EXPECT_TRUE(TrueInChild([&] {
            setenv("XDG_DATA_HOME", folder.File("data").c_str(), 1);
            return WritableFolder(installed) == folder.File("data/tarveth/");
        })) << installed;
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

} // namespace
} // namespace tarveth
