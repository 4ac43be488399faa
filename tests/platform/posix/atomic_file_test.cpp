// Atomic files where there are links, devices and permissions, and a program can be killed at any moment.
#include "platform/atomic_file.h"

#include "platform/file_error.h"
#include "platform/leftovers.h"
#include "tests/platform/ForkedChild.h"
#include "tests/platform/TempFolder.h"
#include "tests/platform/WriteFails.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

#include <sys/stat.h>

namespace tarveth {
namespace {

namespace fs = std::filesystem;
using platform::FileError;
using platform::ReadWholeFile;
using platform::WriteFileAtomically;

TEST(AtomicFile, TheOldFilesPermissionsStayAndANewOneIsReadableByAll) {
    const TempFolder folder;
    PutBytes(folder.File("a"), "old");
    fs::permissions(folder.File("a"), fs::perms{0640});
    WriteFileAtomically(folder.File("a"), "new");
    EXPECT_EQ(fs::status(folder.File("a")).permissions(), fs::perms{0640});

    const mode_t before = umask(022);
    WriteFileAtomically(folder.File("b"), "new");
    umask(before);
    EXPECT_EQ(fs::status(folder.File("b")).permissions(), fs::perms{0644});
}

TEST(AtomicFile, ASymbolicLinkStaysOneAndItsTargetIsReplaced) {
    const TempFolder folder;
    fs::create_directory(folder.File("deep"));
    PutBytes(folder.File("deep/real"), "old");
    fs::create_symlink("deep/real", folder.File("link"));
    fs::create_symlink("deep/later", folder.File("dangling"));
    WriteFileAtomically(folder.File("link"), "new");
    WriteFileAtomically(folder.File("dangling"), "made");
    EXPECT_TRUE(fs::is_symlink(folder.File("link")));
    EXPECT_EQ(GetBytes(folder.File("deep/real")), "new");
    EXPECT_EQ(GetBytes(folder.File("deep/later")), "made");
}

TEST(AtomicFile, AWriteProtectedFolderOrFileIsRefusedAndLeftAlone) {
    const TempFolder folder;
    PutBytes(folder.File("a"), "old");
    fs::permissions(folder.Path(), fs::perms{0555});
    EXPECT_TRUE(TrueInChild([&] { return BecomeNobody() && WriteFails(folder.File("a"), "new"); }));
    fs::permissions(folder.Path(), fs::perms{0777});
    fs::permissions(folder.File("a"), fs::perms{0444});
    EXPECT_TRUE(TrueInChild([&] { return BecomeNobody() && WriteFails(folder.File("a"), "new"); }));
    EXPECT_EQ(GetBytes(folder.File("a")), "old");
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(AtomicFile, AWritableFileInAWriteProtectedFolderIsRefusedInWordsThatSayWhatToDo) {
    const TempFolder folder;
    PutBytes(folder.File("a"), "old");
    fs::permissions(folder.File("a"), fs::perms{0666});
    fs::permissions(folder.Path(), fs::perms{0555});
    EXPECT_TRUE(TrueInChild([&] {
        try {
            BecomeNobody();
            WriteFileAtomically(folder.File("a"), "new");
        } catch (const FileError& error) {
            return error.Cause() == "cannot be written, since no file can be created in its folder; choose "
                                    "another folder (Permission denied)";
        }
        return false;
    }));
    EXPECT_EQ(GetBytes(folder.File("a")), "old");
    fs::permissions(folder.Path(), fs::perms{0777});
}

TEST(AtomicFile, ADiskThatFillsUpLeavesTheOldFileWholeAndNothingBesideIt) {
    const TempFolder folder;
    PutBytes(folder.File("a"), "old");
    EXPECT_TRUE(TrueInChild(
        [&] { return LimitFileSize(4096) && WriteFails(folder.File("a"), std::string(100'000, 'x')); }));
    EXPECT_EQ(GetBytes(folder.File("a")), "old");
    EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(AtomicFile, AProgramKilledAtAnyMomentLeavesTheOldOrTheNewContentWhole) {
    const TempFolder folder;
    const std::string first(300'000, 'a');
    const std::string second(200'000, 'b');
    PutBytes(folder.File("a"), first);
    std::mt19937 random(20260101);
    for (int round = 0; round < 60; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            for (;;) {
                WriteFileAtomically(folder.File("a"), second);
                WriteFileAtomically(folder.File("a"), first);
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 20'000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string found = GetBytes(folder.File("a"));
        ASSERT_TRUE(found == first || found == second)
            << "round " << round << ", " << found.size() << " bytes";
    }
    platform::RemoveLeftovers(folder.Path());
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST(AtomicFile, ADeviceIsRefused) {
    EXPECT_TRUE(WriteFails("/dev/full", "new"));
    EXPECT_TRUE(WriteFails("/proc/a", "new"));
}

TEST(ReadWholeFile, RefusesADeviceAndAPipe) {
    const TempFolder folder;
    ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
    EXPECT_THROW(ReadWholeFile("/dev/zero", 10), FileError);
    EXPECT_THROW(ReadWholeFile(folder.File("pipe"), 10), FileError);
}

} // namespace
} // namespace tarveth
