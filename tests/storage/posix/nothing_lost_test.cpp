// Saving on a full disk and in processes that are killed, tried in child processes: the file holds the old or
// the new game, complete, and the user is told of a failure.
#include "platform/file_error.h"
#include "storage/modFileIO.h"
#include "tests/Dice.h"
#include "tests/platform/ForkedChild.h"
#include "tests/storage/FilesTable.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include <fcntl.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/mount.h>

namespace tarveth::test {
namespace {

namespace fs = std::filesystem;

void MakeLong(Game& game, std::size_t lines = 20'000) {
    game.lstHistory.assign(lines, "R:RO 4C-4D cBP");
}

void SetVersion(Game& game, int version) {
    game.lstHistory.front() = "version " + std::to_string(version);
}

// Gives the version of the game in the file, which must be complete.
int VersionIn(const std::string& file, Game& game) {
    const std::string line = ReadGame(file).lstHistory.at(0);
    game.lstHistory.front() = line;
    EXPECT_TRUE(GetBytes(file) == GameText(game, "a.tsg")) << line;
    return std::stoi(line.substr(std::string("version ").size()));
}

// A child that saves one version after the other and writes a byte into a pipe after each.
class SavingChild {
public:
    SavingChild(FilesTable& t, int version) {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe(ends), 0);
        child_ = fork();
        if (child_ == 0) {
            for (;;) {
                SetVersion(t.game, ++version);
                t.files.SaveGame();
                if (!t.port.boxes.empty() || write(ends[1], "+", 1) != 1)
                    _exit(1);
            }
        }
        close(ends[1]);
        reports_ = ends[0];
    }
    ~SavingChild() { close(reports_); }
    SavingChild(const SavingChild&) = delete;
    SavingChild& operator=(const SavingChild&) = delete;

    // Gives the number of saves that had returned.
    int Kill() const {
        kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
        int saves = 0;
        char byte = 0;
        while (read(reports_, &byte, 1) == 1)
            ++saves;
        return saves;
    }

private:
    pid_t child_ = -1;
    int reports_ = -1;
};

TEST(NothingLost, WhenTheProgramIsKilledAtRandomMomentsOf500Saves) {
    FilesTable t;
    MakeLong(t.game);
    SetVersion(t.game, 0);
    t.SaveAs("a.tsg");
    Dice dice(500);
    int version = 0;
    int kills = 0;
    for (int saves = 0; saves < 500; ++kills) {
        const SavingChild child(t, version);
        std::this_thread::sleep_for(std::chrono::microseconds(dice.Below(40'000)));
        const int done = child.Kill();
        const int found = VersionIn(t.folder.File("a.tsg"), t.game);
        ASSERT_TRUE(found == version + done || found == version + done + 1)
            << "version " << version << ", then " << done << " saves, then " << found;
        version = found;
        saves += done + 1; // the one that was killed counts as well
    }
    EXPECT_GT(kills, 20);
}

// Save, and Save As to a new name.
bool BothAreToldOnce(FilesTable& t) {
    return IsToldOnce(
               t, [&] { t.files.SaveGame(); }, "a.tsg") &&
           IsToldOnce(
               t, [&] { t.SaveAs("new.tsg"); }, "new.tsg");
}

TEST(NothingLost, WhenTheDiskFillsUp) {
    FilesTable t;
    t.SaveAs("a.tsg");
    const std::string old = GetBytes(t.folder.File("a.tsg"));
    MakeLong(t.game);
    EXPECT_TRUE(TrueInChild([&] { return LimitFileSize(4096) && BothAreToldOnce(t); }));
    EXPECT_EQ(GetBytes(t.folder.File("a.tsg")), old);
    EXPECT_EQ(t.folder.FileCount(), 1U) << "and nothing half written beside it";
}

// Mounts a small file system on the folder, for the child process only.
bool MountSmallDisk(const fs::path& folder) {
    return unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=64k") == 0;
}

TEST(NothingLost, WhenASmallFileSystemIsFull) {
    FilesTable t;
    if (!TrueInChild([&] { return MountSmallDisk(t.folder.Path()); }))
        GTEST_SKIP() << "only root may mount a file system, and not everywhere";
    EXPECT_TRUE(TrueInChild([&] {
        MountSmallDisk(t.folder.Path());
        t.SaveAs("a.tsg");
        const std::string old = GetBytes(t.folder.File("a.tsg"));
        MakeLong(t.game);
        return !old.empty() && BothAreToldOnce(t) && GetBytes(t.folder.File("a.tsg")) == old &&
               t.folder.FileCount() == 1;
    }));
}

TEST(NothingLost, InAReadOnlyFolder) {
    FilesTable t;
    t.SaveAs("a.tsg");
    const std::string old = GetBytes(t.folder.File("a.tsg"));
    fs::permissions(t.folder.Path(), fs::perms{0555});
    MakeLong(t.game);
    EXPECT_TRUE(TrueInChild([&] { return BecomeNobody() && BothAreToldOnce(t); }));
    fs::permissions(t.folder.Path(), fs::perms{0755});
    EXPECT_EQ(GetBytes(t.folder.File("a.tsg")), old);
    EXPECT_EQ(t.folder.FileCount(), 1U);
}

TEST(NothingLost, WhenTheFileIsWriteProtected) {
    FilesTable t;
    t.SaveAs("a.tsg");
    const std::string old = GetBytes(t.folder.File("a.tsg"));
    fs::permissions(t.folder.Path(), fs::perms{0777});
    fs::permissions(t.folder.File("a.tsg"), fs::perms{0444});
    MakeLong(t.game);
    EXPECT_TRUE(TrueInChild([&] {
        return BecomeNobody() && IsToldOnce(
                                     t, [&] { t.files.SaveGame(); }, "a.tsg");
    }));
    EXPECT_EQ(GetBytes(t.folder.File("a.tsg")), old);
}

TEST(NothingLost, WhenAnotherProgramHasTheFileLockedAndReadsIt) {
    FilesTable t;
    t.SaveAs("a.tsg");
    const std::string old = GetBytes(t.folder.File("a.tsg"));
    const int other = open(t.folder.File("a.tsg").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    PlayOneCapture(t);
    EXPECT_TRUE(TrueInChild([&] {
        t.files.SaveGame();
        return t.port.boxes.empty();
    }));
    EXPECT_EQ(GetBytes(t.folder.File("a.tsg")), GameText(t.game, "a.tsg"));
    std::string seen(old.size() + 1, '\0');
    EXPECT_EQ(read(other, seen.data(), seen.size()), static_cast<ssize_t>(old.size()));
    EXPECT_TRUE(seen.starts_with(old)) << "who reads it goes on reading the old game";
    close(other);
}

TEST(NothingLost, OfAnOlderLogWhenTheDiskFillsUp) {
    FilesTable t;
    t.settings.AutoSaveLog = -1;
    PutBytes(t.folder.File("lastgame.log"), "B:BP 4E-4D\r\n");
    MakeLong(t.game);
    EXPECT_TRUE(TrueInChild([&] {
        const bool limited = LimitFileSize(4096);
        t.record.BeginNewRecord();
        return limited && t.port.boxes.size() == 1;
    }));
    EXPECT_EQ(GetBytes(t.folder.File("lastgame.log")), "B:BP 4E-4D\r\n");
    EXPECT_EQ(t.folder.FileCount(), 1U);
}

} // namespace
} // namespace tarveth::test
