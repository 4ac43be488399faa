// Loading pipes, protected files and huge files: each is refused, and memory stays bounded.
#include "tests/platform/ForkedChild.h"
#include "tests/storage/BadFiles.h"

#include <sys/resource.h>
#include <sys/stat.h>

namespace tarveth::test {
namespace {

namespace fs = std::filesystem;

TEST_F(BadFiles, ThatArePipesOrProtectedAreRefused) {
    ASSERT_EQ(mkfifo(t.folder.File(kBad).c_str(), 0600), 0);
    EXPECT_TRUE(IsRefused(": cannot be read: it is not a plain file")) << "a pipe that nobody fills";
    fs::remove(t.folder.File(kBad));
    PutBytes(t.folder.File(kBad), good);
    fs::permissions(t.folder.File(kBad), fs::perms::none);
    EXPECT_TRUE(TrueInChild([&] { return BecomeNobody() && IsRefused(": cannot be read ("); }));
}

// Gives by how many KiB the work raises the process's peak memory.
template <typename Work>
long PeakGrowth(Work work) {
    struct rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    const long before = usage.ru_maxrss;
    work();
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss - before;
}

TEST_F(BadFiles, Of50MillionBytesAreRefusedUnread) {
    EXPECT_TRUE(TrueInChild([&] {
        // The code that refuses a file counts as memory when it first runs in a child, so it runs once
        // before.
        bool refused = IsRefusedOnLine("no game");
        PutBytes(t.folder.File(kBad), good);
        fs::resize_file(t.folder.File(kBad), 50'000'000);
        const long growth = PeakGrowth([&] { refused &= IsRefused(": is longer than 8388608 bytes."); });
        return refused && growth < 4'096;
    }));
}

TEST_F(BadFiles, AsLongAsAFileMayBeTakeBoundedMemory) {
    std::string bytes = good.substr(0, good.rfind(" 2 \r\n"));
    bytes += " 100000 \r\n";
    bytes.append((std::size_t{8} << 20) - bytes.size(), '\n');
    bytes[bytes.size() - 1] = 'x';
    PutBytes(t.folder.File(kBad), bytes);
    EXPECT_TRUE(TrueInChild([&] {
        const long growth = PeakGrowth([&] { t.files.LoadGame(); });
        return t.game.lstHistory.size() == 100'000 && growth < 65'536;
    }));
}

} // namespace
} // namespace tarveth::test
