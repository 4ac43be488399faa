// What a save left whose process number is, or seems to be, that of a running program.
#include "platform/leftovers.h"

#include "platform/atomic_file.h"
#include "tests/platform/ForkedChild.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace tarveth {
namespace {

namespace fs = std::filesystem;
using platform::RemoveLeftovers;

constexpr char kOfNoProcess[] = ".tarveth-2147483640-0";

std::string NameOf(pid_t process) {
    return ".tarveth-" + std::to_string(process) + "-0";
}

TEST(LeftoversHere, OfARunningProgramStayForAMinuteOnly) {
    const TempFolder folder;
    for (const pid_t running : {getppid(), 1}) {
        const std::string file = folder.File(NameOf(running));
        PutBytes(file, "half a game");
        RemoveLeftovers(folder.Path());
        EXPECT_TRUE(fs::exists(file));
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::seconds(50));
        RemoveLeftovers(folder.Path());
        EXPECT_TRUE(fs::exists(file));
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::seconds(70));
        RemoveLeftovers(folder.Path());
        EXPECT_FALSE(fs::exists(file)) << "another program has the number by now";
    }
}

TEST(LeftoversHere, ThatSomebodyStillWritesStay) {
    const TempFolder folder;
    const std::string file = folder.File(kOfNoProcess);
    PutBytes(file, "half a game");
    const int writer = open(file.c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(flock(writer, LOCK_EX), 0);
    RemoveLeftovers(folder.Path());
    EXPECT_TRUE(fs::exists(file));
    close(writer);
    RemoveLeftovers(folder.Path());
    EXPECT_FALSE(fs::exists(file));
}

TEST(LeftoversHere, AreNeitherLinksNorPipes) {
    const TempFolder folder;
    PutBytes(folder.File("a"), "");
    fs::create_symlink("a", folder.File(kOfNoProcess));
    ASSERT_EQ(mkfifo(folder.File(".tarveth-2147483640-1").c_str(), 0600), 0);
    RemoveLeftovers(folder.Path());
    EXPECT_EQ(folder.FileCount(), 3U);
}

TEST(LeftoversHere, ThatCannotBeOpenedStay) {
    const TempFolder folder;
    PutBytes(folder.File(kOfNoProcess), "");
    fs::permissions(folder.Path(), fs::perms{0777});
    fs::permissions(folder.File(kOfNoProcess), fs::perms{0});
    EXPECT_TRUE(TrueInChild([&] {
        const bool nobody = BecomeNobody();
        RemoveLeftovers(folder.Path());
        return nobody && folder.FileCount() == 1;
    }));
}

TEST(Leftovers, AreNoneOfTheFilesThatAnotherThreadIsSaving) {
    const TempFolder folder;
    std::atomic<bool> saved = false;
    std::thread other([&] {
        while (!saved)
            RemoveLeftovers(folder.Path());
    });
    for (int save = 0; save < 2000; ++save)
        EXPECT_NO_THROW(platform::WriteFileAtomically(folder.File("a.tsg"), "a game")) << save;
    saved = true;
    other.join();
}

} // namespace
} // namespace tarveth
