// Where games cannot be kept: the bar says so in one line, nothing that was kept is lost, and the play goes
// on.
#include "platform/file_error.h"
#include "storage/modFileIO.h"
#include "tests/platform/ForkedChild.h"
#include "tests/storage/KeeperTable.h"
#include "tests/window/Waiting.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

namespace fs = std::filesystem;

bool BarTellsAProblem(KeeperTable& t) {
    return harness::WaitUntil([&] {
        t.RunLater();
        return t.bar.line.text.starts_with("The game cannot be kept: ");
    });
}

TEST(UnkeptGames, OfAFolderThatTakesNoFileAreToldOnceAndPlayedOn) {
    const TempFolder folder;
    fs::permissions(folder.Path(), fs::perms{0555});
    EXPECT_TRUE(TrueInChild([&] {
        if (!BecomeNobody())
            return false;
        KeeperTable t(folder.Name());
        t.Move("4E", "4D");
        const bool told = BarTellsAProblem(t) && t.bar.line.choices == std::vector{BarChoice::Close};
        t.keeper.Choose(BarChoice::Close);
        t.Move("4C", "4D");
        t.RunLater();
        const bool quiet = t.bar.line == BarLine{};
        t.keeper.Close();
        return told && quiet && t.game.lstHistory.size() == 2 && t.port.boxes.empty();
    }));
    fs::permissions(folder.Path(), fs::perms{0755});
    EXPECT_EQ(folder.FileCount(), 0U);
}

TEST(UnkeptGames, OnAFullDiskLeaveTheLastOneThatWasKept) {
    const TempFolder folder;
    KeeperTable t(folder.Name());
    t.Move("4E", "4D");
    t.keeper.Close();
    const std::string kept = FilesIn(folder.Name(), "unfinished").at(0);
    const std::string bytes = GetBytes(kept);
    EXPECT_TRUE(TrueInChild([&] {
        KeeperTable next(folder.Name());
        next.keeper.Choose(BarChoice::GoOn);
        const bool limited = LimitFileSize(100);
        next.Move("4C", "4D");
        return limited && BarTellsAProblem(next) && GetBytes(kept) == bytes &&
               next.game.lstHistory.size() == 2;
    }));
    EXPECT_EQ(GetBytes(kept), bytes);
}

TEST(UnkeptGames, ThatAreDamagedAreToldAndPutAway) {
    const TempFolder folder;
    {
        KeeperTable t(folder.Name());
        t.Move("4E", "4D");
    }
    const std::string kept = FilesIn(folder.Name(), "unfinished").at(0);
    fs::resize_file(kept, 700);
    {
        const KeeperTable t(folder.Name());
        EXPECT_EQ(t.bar.line.text, "A game that was kept is damaged. Its file is " + kept + ".damaged.");
    }
    EXPECT_TRUE(fs::exists(kept + ".damaged"));
    const KeeperTable t(folder.Name());
    EXPECT_EQ(t.bar.line, BarLine{}) << "told once";
}

TEST(UnkeptGames, AreKeptWithAClockThatJumps) {
    const TempFolder folder;
    for (const std::int64_t moment : {std::int64_t{-5'000'000'000}, std::int64_t{0}, std::int64_t{1} << 62}) {
        {
            KeeperTable t(folder.Name());
            t.now = moment;
            t.Move("4E", "4D");
        }
        KeeperTable t(folder.Name());
        EXPECT_TRUE(t.bar.line.text.starts_with("Go on with the game of ")) << moment;
        EXPECT_EQ(t.bar.line.text.find("0000"), std::string::npos) << t.bar.line.text;
        t.keeper.Choose(BarChoice::GoOn);
        EXPECT_EQ(t.game.lstHistory.size(), 1U);
        t.keeper.Close();
        KeeperTable again(folder.Name());
        again.keeper.Choose(BarChoice::Discard);
        again.keeper.Close();
    }
}

} // namespace
} // namespace tarveth::test
