#include "platform/leftovers.h"

#include "platform/atomic_file.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

namespace fs = std::filesystem;
using platform::MakerOf;
using platform::RemoveLeftovers;

constexpr char kOfNoProcess[] = ".tarveth-2147483640-0"; // no system counts its processes up to there

TEST(Leftovers, HaveTheirMakersNumberInTheirName) {
    EXPECT_EQ(MakerOf(".tarveth-123-0"), 123UL);
    EXPECT_EQ(MakerOf(".tarveth-4294967295-99"), 4294967295UL);
    EXPECT_EQ(MakerOf(platform::NewFileName(7)), platform::OwnProcess());
    for (const char* other :
         {"", "a.tsg", ".tarveth-", ".tarveth-123", ".tarveth-123-", ".tarveth--0", ".tarveth-probe-123",
          ".tarveth-12x-0", ".tarveth-123-0x", ".tarveth-123-0-0", ".tarveth--123-0", ".tarveth- 123-0",
          "tarveth-123-0", ".tarveth-4294967296-0", ".tarveth-99999999999999999999-0", ".Tarveth-123-0"})
        EXPECT_EQ(MakerOf(other), std::nullopt) << other;
}

TEST(Leftovers, OfAProcessThatIsGoneAreRemovedHoweverYoung) {
    const TempFolder folder;
    PutBytes(folder.File(kOfNoProcess), "half a game");
    PutBytes(folder.File(".tarveth-0-1"), "");
    PutBytes(folder.File("a.tsg"), "a game");
    RemoveLeftovers(folder.Path());
    EXPECT_EQ(folder.FileCount(), 1U);
    EXPECT_EQ(GetBytes(folder.File("a.tsg")), "a game");
}

TEST(Leftovers, OfAnEarlierProgramWithOurOwnNumberAreRemoved) {
    const TempFolder folder;
    PutBytes((folder.Path() / platform::NewFileName(3)).string(), "half a game");
    RemoveLeftovers(folder.Path());
    EXPECT_EQ(folder.FileCount(), 0U);
}

TEST(Leftovers, AreRemovedByASaveIntoTheirFolder) {
    const TempFolder folder;
    PutBytes(folder.File(kOfNoProcess), "half a game");
    platform::WriteFileAtomically(folder.File("a.tsg"), "a game");
    EXPECT_EQ(folder.FileCount(), 1U);
    EXPECT_EQ(GetBytes(folder.File("a.tsg")), "a game");
}

TEST(Leftovers, AreLookedForOnceInEachFolder) {
    const TempFolder folder;
    platform::RemoveLeftoversOnce(folder.Path());
    PutBytes(folder.File(kOfNoProcess), "half a game");
    platform::RemoveLeftoversOnce(folder.Path());
    EXPECT_EQ(folder.FileCount(), 1U) << "the second time nothing is looked for";

    const TempFolder another;
    PutBytes(another.File(kOfNoProcess), "half a game");
    platform::RemoveLeftoversOnce(another.Path());
    EXPECT_EQ(another.FileCount(), 0U);
}

TEST(Leftovers, AreFilesOfTheirNamesOnly) {
    const TempFolder folder;
    fs::create_directory(folder.File(kOfNoProcess));
    PutBytes(folder.File(".tarveth-2147483640-x"), "");
    PutBytes(folder.File(".tarveth-probe-2147483640"), "");
    RemoveLeftovers(folder.Path());
    EXPECT_EQ(folder.FileCount(), 3U);
}

TEST(Leftovers, AreNotLookedForWhereThereIsNoFolder) {
    const TempFolder folder;
    PutBytes(folder.File("a"), "");
    RemoveLeftovers(folder.Path() / "missing");
    RemoveLeftovers(folder.Path() / "a");
    EXPECT_EQ(folder.FileCount(), 1U);
}

} // namespace
} // namespace tarveth
