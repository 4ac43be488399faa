// Games whose place another one takes: they are kept, and can be brought back.
#include "storage/modFileIO.h"
#include "tests/storage/KeeperTable.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

TEST(ReplacedGames, ComeBackByOneClickWhileTheNewGameHasNoTurn) {
    const TempFolder folder;
    KeeperTable t(folder.Name());
    t.Move("4E", "4D");
    const std::string before = TextOf(t.game);
    t.main.NewGame();
    EXPECT_EQ(t.bar.line, (BarLine{"The game before is kept.", {BarChoice::BringBack}}));
    t.Click("4E");
    t.main.NewGame();
    EXPECT_EQ(t.bar.line.choices, Choices{BarChoice::BringBack}) << "a game without a turn replaces none";
    t.keeper.Choose(BarChoice::BringBack);
    EXPECT_EQ(TextOf(t.game), before);
    EXPECT_EQ(t.bar.line, BarLine{});
}

TEST(ReplacedGames, AreKeptWhenTheirFirstTurnIsNotQuiteOver) {
    const TempFolder folder;
    KeeperTable t(folder.Name());
    t.Click("4E");
    t.main.DepositSquare(SquareOf("4D"));
    t.main.Pass(); // the piece has moved, the turn is Blue's still
    ASSERT_EQ(t.game.GameState, kTurnOver);
    t.main.NewGame();
    t.keeper.Choose(BarChoice::BringBack);
    EXPECT_EQ(t.game.lstHistory, std::vector<std::string>{"B:BP 4E-4D"});
    EXPECT_EQ(t.game.Turn, Red);
}

TEST(ReplacedGames, AreInTheLibraryOnceTheNewGameHasATurn) {
    const TempFolder folder;
    KeeperTable t(folder.Name());
    t.Move("4E", "4D");
    const std::string before = TextOf(t.game);
    t.main.NewGame();
    t.Move("6E", "6D");
    EXPECT_EQ(t.bar.line, BarLine{});
    t.keeper.Close();
    const auto games = FilesIn(folder.Name(), "games");
    ASSERT_EQ(games.size(), 1U);
    EXPECT_TRUE(games.front().ends_with("Blue against Red, unfinished #1.tsg")) << games.front();
    EXPECT_EQ(TextOf(ReadGame(games.front())), before);
    EXPECT_EQ(FilesIn(folder.Name(), "unfinished").size(), 1U) << "the new one";
}

TEST(ReplacedGames, AreOfferedWhenTheProgramEndsBeforeThat) {
    const TempFolder folder;
    std::string before;
    {
        KeeperTable t(folder.Name());
        t.Move("4E", "4D");
        before = TextOf(t.game);
        t.main.NewGame();
    }
    KeeperTable t(folder.Name());
    t.keeper.Choose(BarChoice::GoOn);
    EXPECT_EQ(TextOf(t.game), before);
}

TEST(ReplacedGames, ByALoadedGameKeepTheirOwnName) {
    const TempFolder folder;
    KeeperTable t(folder.Name());
    t.asked.chosen = folder.File("a.tsg");
    t.files.SaveGameAs();
    t.asked.chosen = folder.File("b.tsg");
    t.files.SaveGameAs();
    t.Move("4E", "4D");
    t.files.OpenGame(folder.File("a.tsg"));
    EXPECT_EQ(t.bar.line.choices, Choices{BarChoice::BringBack});
    t.keeper.Choose(BarChoice::BringBack);
    EXPECT_EQ(t.record.GameFileName, folder.File("b.tsg"));
}

TEST(ReplacedGames, ByAnOpponentsBoardAreKept) {
    const TempFolder folder;
    KeeperTable t(folder.Name());
    t.Move("4E", "4D");
    const std::string before = TextOf(t.game);
    Game board = t.game;
    board.lstHistory.clear();
    t.main.SetUpPosition(board, PositionSource::Opponent);
    EXPECT_EQ(t.bar.line.choices, Choices{BarChoice::BringBack});
    t.keeper.Choose(BarChoice::BringBack);
    EXPECT_EQ(TextOf(t.game), before);
}

TEST(ReplacedGames, ByOneThatWasOfferedComeBackToo) {
    const TempFolder folder;
    {
        KeeperTable t(folder.Name());
        t.Move("4E", "4D");
    }
    KeeperTable t(folder.Name());
    t.Move("6E", "6D");
    t.keeper.Choose(BarChoice::GoOn);
    EXPECT_EQ(t.game.lstHistory, std::vector<std::string>{"B:BP 4E-4D"});
    EXPECT_EQ(t.bar.line.choices, Choices{BarChoice::BringBack});
    t.keeper.Choose(BarChoice::BringBack);
    EXPECT_EQ(t.game.lstHistory, std::vector<std::string>{"B:BP 6E-6D"});
}

} // namespace
} // namespace tarveth::test
