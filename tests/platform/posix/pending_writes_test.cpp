// Where the system has no private-profile functions, writes are gathered and reach the file in one piece.
#include "platform/private_profile.h"

#include "tests/platform/ForkedChild.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

namespace tarveth {
namespace {

class PendingWrites : public testing::Test {
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

TEST_F(PendingWrites, AreReadAtOnceButReachTheFileWithTheFlush) {
    PutBytes(file, "[A]\r\nk=1\r\n");
    EXPECT_TRUE(Write("k", "2"));
    EXPECT_TRUE(Write("j", "3"));
    EXPECT_EQ(Text("k"), "2");
    EXPECT_EQ(Text("j"), "3");
    EXPECT_EQ(GetBytes(file), "[A]\r\nk=1\r\n");
    EXPECT_TRUE(profile.Flush());
    EXPECT_EQ(GetBytes(file), "[A]\r\nk=2\r\nj=3\r\n");
}

TEST_F(PendingWrites, StartFromTheFileAsItIsThen) {
    PutBytes(file, "[A]\r\nk=1\r\n");
    EXPECT_EQ(Text("k"), "1");
    EXPECT_TRUE(Write("j", "1"));
    EXPECT_TRUE(profile.Flush());
    PutBytes(file, "; edited by hand\r\n[A]\r\nk=5\r\n");
    EXPECT_EQ(Text("k"), "5");
    EXPECT_TRUE(Write("j", "2"));
    EXPECT_TRUE(profile.Flush());
    EXPECT_EQ(GetBytes(file), "; edited by hand\r\n[A]\r\nk=5\r\nj=2\r\n");
}

TEST_F(PendingWrites, OfSeveralFilesAreKeptApart) {
    EXPECT_TRUE(Write("k", "1"));
    EXPECT_TRUE(profile.WritePrivateProfileStringA("A", "k", "2", folder.File("q.ini")));
    EXPECT_TRUE(profile.Flush());
    EXPECT_EQ(GetBytes(file), "[A]\r\nk=1\r\n");
    EXPECT_EQ(GetBytes(folder.File("q.ini")), "[A]\r\nk=2\r\n");
}

TEST_F(PendingWrites, AreFlushedWhenTheProfileGoes) {
    auto other = std::make_unique<platform::PrivateProfile>();
    EXPECT_TRUE(other->WritePrivateProfileStringA("A", "k", "v", file));
    other.reset();
    EXPECT_EQ(GetBytes(file), "[A]\r\nk=v\r\n");
}

TEST_F(PendingWrites, ThatWereRefusedLeaveNoFile) {
    EXPECT_FALSE(Write("", "v"));
    EXPECT_TRUE(profile.Flush());
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(PendingWrites, ThatTheDiskCannotTakeLeaveTheOldFileWhole) {
    const std::string old = "[A]\r\nk=1\r\nlong=" + std::string(8000, 'x') + "\r\n";
    PutBytes(file, old);
    EXPECT_TRUE(TrueInChild(
        [&] { return LimitFileSize(4096) && Write("k", "2") && !profile.Flush() && Text("k") == "1"; }));
    EXPECT_EQ(GetBytes(file), old);
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST_F(PendingWrites, ToAWriteProtectedFileOrFolderAreRefused) {
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

TEST_F(PendingWrites, ToAFileThatCannotBeReadAreRefused) {
    PutBytes(file, std::string(2'000'000, 'x'));
    EXPECT_EQ(Text("k"), "(none)");
    EXPECT_FALSE(Write("k", "v"));
}

} // namespace
} // namespace tarveth
