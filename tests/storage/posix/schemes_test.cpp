// Picture schemes where nothing can be written.
#include "storage/schemes.h"

#include "platform/file_error.h"
#include "tests/platform/ForkedChild.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

class UnwritableScheme : public testing::Test {
protected:
    // Gives the error text of the write.
    std::string WriteFailure() const {
        try {
            PictureSchemeWrite(file, blue, red);
        } catch (const platform::FileError& error) {
            return error.what();
        }
        return {};
    }

    TempFolder folder;
    std::string file = folder.File("blue.tps");
    PictureNames blue = {"", "b1", "b2", "b3"};
    PictureNames red = {"", "r1", "r2", "r3"};
};

TEST_F(UnwritableScheme, InAWriteProtectedFolderSaysSo) {
    EXPECT_TRUE(TrueInChild([&] {
        return BecomeNobody() && WriteFailure() == file + ": cannot be written (Permission denied).";
    }));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(UnwritableScheme, ThatFindsTheDiskFullLeavesTheOldFileWhole) {
    PictureSchemeWrite(file, blue, red);
    const std::string old = GetBytes(file);
    blue[1] = std::string(200, 'x');
    EXPECT_TRUE(TrueInChild([&] {
        return LimitFileSize(100) && WriteFailure() == file + ": cannot be written (File too large).";
    }));
    EXPECT_EQ(GetBytes(file), old);
    EXPECT_EQ(folder.FileCount(), 1U);
}

} // namespace
} // namespace tarveth
