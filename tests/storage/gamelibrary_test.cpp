// The library of games that were played: their names, and how many there are.
#include "engine/rules/atrest.h"
#include "platform/local_time.h"
#include "storage/gamelibrary.h"
#include "storage/modFileIO.h"
#include "tests/storage/KeeperTable.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

namespace fs = std::filesystem;

LibraryGame Sample(std::int64_t moment = 1'763'845'240) {
    TestGame t;
    return {{AtRest(t.game), moment, "", "", NoSide}, "Bubba", true};
}

std::string NameOf(const std::string& path) {
    return platform::PathFromText(path).filename().string();
}

std::size_t CountGames(const TempFolder& folder) {
    return FilesIn(folder.Name(), "games").size();
}

TEST(GameLibrary, NamesGamesAfterDayAndPlayers) {
    const TempFolder folder;
    LibraryGame game = Sample();
    const platform::LocalTime then = platform::ToLocalTime(game.kept.moment);
    const std::string atScreen = NameOf(AddToLibrary(game, folder.Name()));
    EXPECT_TRUE(atScreen.starts_with(std::to_string(then.year) + '-')) << atScreen;
    EXPECT_TRUE(atScreen.ends_with(" Blue against Red #1.tsg")) << atScreen;

    game.kept.opponent = "Ann";
    game.kept.side = Red;
    EXPECT_TRUE(NameOf(AddToLibrary(game, folder.Name())).ends_with(" Ann against Bubba #2.tsg"));
    game.kept.side = Blue;
    game.finished = false;
    EXPECT_TRUE(NameOf(AddToLibrary(game, folder.Name())).ends_with(" Bubba against Ann, unfinished #3.tsg"));
}

TEST(GameLibrary, TakesPlayersOfAnyName) {
    const TempFolder folder;
    LibraryGame game = Sample();
    game.kept.opponent = "../../a:b\\c*?\"<>|\n";
    game.kept.side = Red;
    const std::string path = AddToLibrary(game, folder.Name());
    EXPECT_TRUE(NameOf(path).ends_with(" ..-..-a-b-c------- against Bubba #1.tsg")) << path;
    EXPECT_EQ(CountGames(folder), 1U);

    game.nickname.clear();
    for (int i = 0; i < 200; ++i)
        game.nickname += "\u00e4";
    EXPECT_EQ(ReadGame(AddToLibrary(game, folder.Name())), game.kept.game) << "cut, but not in a letter";
}

TEST(GameLibrary, HoldsTheNewestGamesOnly) {
    const TempFolder folder;
    fs::create_directory(folder.File("games"));
    for (int i = 0; i < kMostLibraryGames; ++i)
        PutBytes(folder.File("games/old #" + std::to_string(i + 1) + ".tsg"), "");
    PutBytes(folder.File("games/my best game.tsg"), "");
    AddToLibrary(Sample(), folder.Name());
    EXPECT_EQ(CountGames(folder), kMostLibraryGames + 1U) << "with the one that is not the library's";
    EXPECT_FALSE(fs::exists(folder.File("games/old #1.tsg")));
    EXPECT_TRUE(fs::exists(folder.File("games/old #2.tsg")));
    EXPECT_TRUE(fs::exists(folder.File("games/my best game.tsg")));
}

TEST(GameLibrary, LosesNoNewGameToAClockThatJumpsBack) {
    const TempFolder folder;
    fs::create_directory(folder.File("games"));
    for (int i = 0; i < kMostLibraryGames; ++i)
        PutBytes(folder.File("games/2026-11-22 21-14 Blue against Red #" + std::to_string(i + 1) + ".tsg"),
                 "");
    std::vector<std::string> added;
    for (const std::int64_t moment :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1} << 62, std::int64_t{60}})
        added.push_back(AddToLibrary(Sample(moment), folder.Name()));
    EXPECT_EQ(CountGames(folder), static_cast<std::size_t>(kMostLibraryGames));
    for (const std::string& path : added)
        EXPECT_TRUE(fs::exists(platform::PathFromText(path))) << path;
}

} // namespace
} // namespace tarveth::test
