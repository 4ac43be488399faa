// Writes to an INI file are gathered and reach the file in one piece.
#include "platform/private_profile.h"

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

TEST_F(PendingWrites, ToAFileThatCannotBeReadAreRefused) {
    PutBytes(file, std::string(2'000'000, 'x'));
    EXPECT_EQ(Text("k"), "(none)");
    EXPECT_FALSE(Write("k", "v"));
}

TEST_F(PendingWrites, AreReadInAnyCaseAndAsTheyWillReadBack) {
    PutBytes(file, "[A]\r\nk=1\r\n");
    EXPECT_TRUE(profile.WritePrivateProfileStringA(" a ", " K ", "  \"v\"  ", file));
    EXPECT_EQ(Text("k"), "v");
    EXPECT_TRUE(Write("k", "31x"));
    EXPECT_EQ(profile.GetPrivateProfileIntA("A", "k", 7, file), 31);
    EXPECT_TRUE(Write("k", ""));
    EXPECT_EQ(Text("k"), "");
    EXPECT_EQ(profile.GetPrivateProfileIntA("A", "k", 7, file), 7);
}

TEST_F(PendingWrites, KeepWhatAnotherProgramWritesUntilTheFlush) {
    PutBytes(file, "[A]\r\nk=1\r\nj=1\r\n");
    EXPECT_TRUE(Write("k", "2"));
    PutBytes(file, "; by another program\r\n[A]\r\nk=5\r\nj=6\r\n[B]\r\nnew=7\r\n");
    EXPECT_TRUE(profile.Flush());
    EXPECT_EQ(GetBytes(file), "; by another program\r\n[A]\r\nk=2\r\nj=6\r\n[B]\r\nnew=7\r\n");
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST_F(PendingWrites, ThatWouldMakeTheFileTooLongAreRefusedTogether) {
    const std::string old = "[A]\r\nk=1\r\n; " + std::string((1 << 20) - 60, 'x') + "\r\n";
    PutBytes(file, old);
    EXPECT_TRUE(Write("k", "2"));
    EXPECT_TRUE(Write("long", std::string(50, 'y')));
    EXPECT_FALSE(profile.Flush());
    EXPECT_EQ(GetBytes(file), old);
    EXPECT_EQ(Text("k"), "1");
    EXPECT_TRUE(Write("k", "3"));
    EXPECT_TRUE(profile.Flush());
    EXPECT_EQ(Text("k"), "3");
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST_F(PendingWrites, ToAFileOfUtf16AreRefused) {
    using namespace std::string_view_literals;
    for (const auto bytes : {"\xff\xfe[\0A\0]\0\r\0\n\0"sv, "\xfe\xff\0[\0A\0]\0\r\0\n"sv,
                             "[\0A\0]\0\r\0\n\0"sv, "\0[\0A\0]\0\r\0\n"sv}) {
        PutBytes(file, bytes);
        EXPECT_FALSE(Write("k", "v"));
        EXPECT_TRUE(profile.Flush());
        EXPECT_EQ(GetBytes(file), bytes);
    }
}

TEST_F(PendingWrites, ToAFileThatHasBecomeUtf16AreRefusedByTheFlush) {
    EXPECT_TRUE(Write("k", "v"));
    const std::string wide("\xff\xfe[\0A\0]\0", 8);
    PutBytes(file, wide);
    EXPECT_FALSE(profile.Flush());
    EXPECT_EQ(GetBytes(file), wide);
}

} // namespace
} // namespace tarveth
