// Gathered writes to an INI file on a full disk, and where nothing can be written.
#include "platform/private_profile.h"

#include "tests/platform/ForkedChild.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <array>

namespace tarveth {
namespace {

class RefusedWrites : public testing::Test {
protected:
    std::string Text(const std::string& key) const {
        std::array<char, 255> buffer = {};
        return {buffer.data(), profile.GetPrivateProfileStringA("A", key, "(none)", buffer, file)};
    }
    bool Write(const std::string& key, const std::string& value) {
        return profile.WritePrivateProfileStringA("A", key, value, file);
    }

    TempFolder folder;
    std::string file = folder.File("p.ini");
    platform::PrivateProfile profile;
};

TEST_F(RefusedWrites, ThatTheDiskCannotTakeLeaveTheOldFileWhole) {
    const std::string old = "[A]\r\nk=1\r\nlong=" + std::string(8000, 'x') + "\r\n";
    PutBytes(file, old);
    EXPECT_TRUE(TrueInChild(
        [&] { return LimitFileSize(4096) && Write("k", "2") && !profile.Flush() && Text("k") == "1"; }));
    EXPECT_EQ(GetBytes(file), old);
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST_F(RefusedWrites, ToAWriteProtectedFileOrFolderAreRefused) {
    PutBytes(file, "[A]\r\nk=1\r\n");
    std::filesystem::permissions(file, std::filesystem::perms{0444});
    EXPECT_TRUE(TrueInChild([&] { return BecomeNobody() && !Write("k", "2"); }));
    std::filesystem::permissions(folder.Path(), std::filesystem::perms{0555});
    EXPECT_TRUE(TrueInChild([&] {
        return BecomeNobody() && !profile.WritePrivateProfileStringA("A", "k", "v", folder.File("new.ini"));
    }));
    std::filesystem::permissions(folder.Path(), std::filesystem::perms{0755});
    EXPECT_EQ(GetBytes(file), "[A]\r\nk=1\r\n");
}

} // namespace
} // namespace tarveth
