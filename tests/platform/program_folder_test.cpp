#include "platform/program_folder.h"

#include "platform/file_exists.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

using platform::FileExists;
using platform::ProgramFolder;
using platform::WritableFolder;

TEST(ProgramFolder, HoldsTheExecutableAndEndsInASeparator) {
    EXPECT_EQ(ProgramFolder().back(), platform::PathSeparator());
    EXPECT_TRUE(FileExists(ProgramFolder() + PROGRAM_NAME));
}

TEST(WritableFolder, IsTheProgramsOwnWhereAFileCanBeCreated) {
    const TempFolder folder;
    EXPECT_EQ(WritableFolder(folder.Name()), folder.Name());
    EXPECT_EQ(WritableFolder(folder.Path().string()), folder.Name());
    EXPECT_EQ(folder.FileCount(), 0u);
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
