// The list of recent games.
#include "storage/recentgames.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

using Paths = std::vector<std::string>;

TEST(RecentGamesList, HasTheNewestFirstAndNoneTwice) {
    const TempFolder folder;
    const RecentGames recent(folder.Name());
    EXPECT_TRUE(recent.Paths().empty());
    EXPECT_EQ(recent.Newest(), "");
    for (const char* path : {"/a.tsg", "/b.tsg", "/G\u00e4me.tsg", "/a.tsg"})
        recent.Note(path);
    EXPECT_EQ(recent.Paths(), (Paths{"/a.tsg", "/G\u00e4me.tsg", "/b.tsg"}));
    EXPECT_EQ(RecentGames(folder.Name()).Paths(), recent.Paths()) << "for the next start and other programs";
}

TEST(RecentGamesList, HoldsTen) {
    const TempFolder folder;
    const RecentGames recent(folder.Name());
    for (int i = 1; i <= 12; ++i)
        recent.Note("/" + std::to_string(i));
    EXPECT_EQ(recent.Paths().size(), kMostRecentGames);
    EXPECT_EQ(recent.Paths().front(), "/12");
    EXPECT_EQ(recent.Paths().back(), "/3");
}

TEST(RecentGamesList, NamesAsNewestTheFirstThatIsThere) {
    const TempFolder folder;
    const RecentGames recent(folder.Name());
    PutBytes(folder.File("old.tsg"), "");
    recent.Note(folder.File("old.tsg"));
    recent.Note(folder.File("removed.tsg"));
    EXPECT_EQ(recent.Newest(), folder.File("old.tsg"));
}

TEST(RecentGamesList, TakesAnyFileForAList) {
    const TempFolder folder;
    const RecentGames recent(folder.Name());
    PutBytes(folder.File("recent.txt"), "\n\n/a.tsg\n\r\n/b.tsg");
    EXPECT_EQ(recent.Paths(), (Paths{"/a.tsg", "/b.tsg"}));
    recent.Note("/line\nend");
    EXPECT_EQ(recent.Paths().size(), 2U) << "no path with a line end";
    PutBytes(folder.File("recent.txt"), std::string(2'000'000, 'x'));
    EXPECT_TRUE(recent.Paths().empty());
    recent.Note("/c.tsg");
    EXPECT_EQ(recent.Paths(), Paths{"/c.tsg"});
}

TEST(RecentGamesList, ThatCannotBeWrittenIsNoFault) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.File("recent.txt"));
    const RecentGames recent(folder.Name());
    recent.Note("/a.tsg");
    EXPECT_TRUE(recent.Paths().empty());
}

} // namespace
} // namespace tarveth::test
