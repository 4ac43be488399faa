// Games that are kept aside after every turn, and offered at the next start.
#include "engine/rules/atrest.h"
#include "platform/file_text.h"
#include "storage/modFileIO.h"
#include "tests/Dice.h"
#include "tests/PickTurn.h"
#include "tests/storage/KeeperTable.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tarveth::test {
namespace {

const Choices kOffer{BarChoice::GoOn, BarChoice::SaveAs, BarChoice::Discard};

// Plays random turns until one is to be played that `wanted` holds for, and gives it.
template <class Wanted>
CompleteTurn PlayUntil(KeeperTable& t, Dice& dice, Wanted wanted) {
    for (;;) {
        if (t.game.GameState == kGameOver)
            t.main.NewGame();
        const CompleteTurn turn = PickTurn(t.game, dice);
        if (wanted(turn))
            return turn;
        t.PlayTurn(turn);
    }
}

TEST(KeptGames, AreOfferedAtTheNextStartAndGoOnAsTheyWere) {
    const TempFolder folder;
    std::string left;
    {
        KeeperTable t(folder.Name());
        t.Move("4E", "4D");
        t.Move("4C", "4D");
        left = TextOf(t.game);
        t.keeper.Close();
    }
    KeeperTable t(folder.Name());
    EXPECT_TRUE(t.bar.line.text.starts_with("Go on with the game of ")) << t.bar.line.text;
    EXPECT_EQ(t.bar.line.choices, kOffer);
    EXPECT_TRUE(t.game.lstHistory.empty()) << "a new game is on the board until the user has chosen";

    t.keeper.Choose(BarChoice::GoOn);
    EXPECT_EQ(TextOf(t.game), left);
    EXPECT_EQ(t.bar.line, BarLine{});
    t.Move("6E", "6D");
    EXPECT_EQ(t.game.lstHistory.size(), 3U);
    t.keeper.Close();
    EXPECT_EQ(FilesIn(folder.Name(), "unfinished").size(), 1U) << "it goes on in its own file";
}

TEST(KeptGames, AreOfferedAfterACrashWithoutAClose) {
    const TempFolder folder;
    std::string left;
    {
        KeeperTable t(folder.Name());
        t.Move("4E", "4D");
        left = TextOf(t.game);
    }
    KeeperTable t(folder.Name());
    t.keeper.Choose(BarChoice::GoOn);
    EXPECT_EQ(TextOf(t.game), left);
}

TEST(KeptGames, NeedATurn) {
    const TempFolder folder;
    {
        KeeperTable t(folder.Name());
        t.Click("4E"); // picked, not moved
        t.main.NewGame();
        EXPECT_EQ(t.bar.line, BarLine{});
        t.keeper.Close();
    }
    EXPECT_EQ(folder.FileCount(), 0U);
    const KeeperTable t(folder.Name());
    EXPECT_EQ(t.bar.line, BarLine{});
}

TEST(KeptGames, StayOfferedUntilTheUserHasChosen) {
    const TempFolder folder;
    {
        KeeperTable t(folder.Name());
        t.Move("4E", "4D");
        t.keeper.Close();
    }
    for (int start = 0; start < 3; ++start) {
        KeeperTable t(folder.Name());
        EXPECT_EQ(t.bar.line.choices, kOffer) << "start " << start;
        t.keeper.Close();
    }
    {
        KeeperTable t(folder.Name());
        t.keeper.Choose(BarChoice::Discard);
        EXPECT_EQ(t.bar.line, BarLine{});
        t.keeper.Close();
    }
    const KeeperTable t(folder.Name());
    EXPECT_EQ(t.bar.line, BarLine{});
}

TEST(KeptGames, AreSavedUnderAnyNameFromTheBar) {
    const TempFolder folder;
    std::string left;
    {
        KeeperTable t(folder.Name());
        t.Move("4E", "4D");
        left = TextOf(t.game);
        t.keeper.Close();
    }
    KeeperTable t(folder.Name());
    t.keeper.Choose(BarChoice::SaveAs); // cancelled
    EXPECT_EQ(t.bar.line.choices, kOffer);
    ASSERT_EQ(t.asked.dialogs.size(), 1U);
    EXPECT_TRUE(t.asked.dialogs.front().name.starts_with("Game 20")) << t.asked.dialogs.front().name;

    t.asked.chosen = folder.File("mine.tsg");
    t.keeper.Choose(BarChoice::SaveAs);
    EXPECT_EQ(TextOf(ReadGame(folder.File("mine.tsg"))), left);
    EXPECT_EQ(t.bar.line, BarLine{});
    EXPECT_TRUE(t.record.GameFileName.empty()) << "the game on the board is another one";
    t.keeper.Close();
    EXPECT_TRUE(FilesIn(folder.Name(), "unfinished").empty());
}

TEST(KeptGames, AreNotTakenByASecondProgramOfTheFolder) {
    const TempFolder folder;
    KeeperTable first(folder.Name());
    first.Move("4E", "4D");
    KeeperTable second(folder.Name());
    EXPECT_EQ(second.bar.line, BarLine{}) << "the first still plays it";
    second.Move("6E", "6D");
    first.Move("4C", "4D");
    first.keeper.Close();
    second.keeper.Close();
    EXPECT_EQ(FilesIn(folder.Name(), "unfinished").size(), 2U);

    KeeperTable third(folder.Name());
    KeeperTable fourth(folder.Name());
    EXPECT_EQ(third.bar.line.choices, kOffer);
    EXPECT_EQ(fourth.bar.line, BarLine{}) << "the third has both";
    third.keeper.Choose(BarChoice::Discard);
    EXPECT_EQ(third.bar.line.choices, kOffer);
    third.keeper.Choose(BarChoice::Discard);
    EXPECT_EQ(third.bar.line, BarLine{});
}

TEST(KeptGames, AreOfferedNewestFirst) {
    const TempFolder folder;
    {
        KeeperTable older(folder.Name());
        KeeperTable newer(folder.Name());
        older.Move("4E", "4D");
        newer.now += 60;
        newer.Move("6E", "6D");
    }
    KeeperTable t(folder.Name());
    t.keeper.Choose(BarChoice::GoOn);
    EXPECT_EQ(t.game.lstHistory, std::vector<std::string>{"B:BP 6E-6D"});
    EXPECT_EQ(t.bar.line.choices, kOffer) << "now the older one";
}

TEST(KeptGames, KeepTheNameOfTheirFile) {
    const TempFolder folder;
    {
        KeeperTable t(folder.Name());
        t.asked.chosen = folder.File("a.tsg");
        t.files.SaveGameAs();
        t.Move("4E", "4D");
        t.keeper.Close();
    }
    KeeperTable t(folder.Name());
    t.keeper.Choose(BarChoice::GoOn);
    EXPECT_EQ(t.record.GameFileName, folder.File("a.tsg"));
    EXPECT_EQ(t.port.caption, t.record.GameTitle + " (Tarveth)");
}

TEST(KeptGames, InTheMiddleOfATurnStandAsBeforeIt) {
    const TempFolder folder;
    std::string before;
    {
        KeeperTable t(folder.Name());
        Dice dice(14);
        const CompleteTurn turn =
            PlayUntil(t, dice, [](const CompleteTurn& next) { return next.returnKind != 0; });
        before = TextOf(t.game);
        t.Click(turn.from);
        t.Click(turn.to);
        ASSERT_EQ(t.game.GameState, kReturnPiece) << "the piece is still to be placed";
        t.keeper.Close();
    }
    KeeperTable t(folder.Name());
    t.keeper.Choose(BarChoice::GoOn);
    EXPECT_EQ(TextOf(t.game), before);
}

TEST(KeptGames, AreNotWrittenWhileNothingChanges) {
    const TempFolder folder;
    {
        KeeperTable t(folder.Name());
        t.Move("4E", "4D");
    }
    const std::string file = FilesIn(folder.Name(), "unfinished").at(0);
    std::filesystem::file_time_type longAgo;
    {
        KeeperTable t(folder.Name());
        t.keeper.Choose(BarChoice::GoOn);
        std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now() -
                                                   std::chrono::hours(1));
        longAgo = std::filesystem::last_write_time(file); // as exactly as the system keeps it
        t.Click("4C");
        t.Click("4C");
        t.Click("8H");
        t.now += 1000;
        t.keeper.Close();
    }
    EXPECT_EQ(std::filesystem::last_write_time(file), longAgo);
}

TEST(Settings, CanSwitchOffThatGamesAreKept) {
    const TempFolder folder;
    KeeperTable t(folder.Name());
    t.settings.KeepAside = 0;
    t.Move("4E", "4D");
    t.main.NewGame();
    EXPECT_EQ(t.bar.line, BarLine{});
    t.Move("4E", "4D");
    t.keeper.Close();
    EXPECT_EQ(folder.FileCount(), 0U);
}

TEST(Settings, CanSwitchOffTheLibraryOfFinishedGamesOnly) {
    const TempFolder folder;
    KeeperTable t(folder.Name());
    t.settings.KeepGames = 0;
    t.Move("4E", "4D");
    t.main.NewGame();
    Dice dice(15);
    t.PlayTurn(PlayUntil(t, dice, [](const CompleteTurn& next) { return next.wins; }));
    ASSERT_EQ(t.game.GameState, kGameOver);
    t.keeper.Close();
    ASSERT_EQ(FilesIn(folder.Name(), "games").size(), 1U);
    EXPECT_TRUE(FilesIn(folder.Name(), "games").front().ends_with(", unfinished #1.tsg"));
    EXPECT_TRUE(FilesIn(folder.Name(), "unfinished").empty());
}

TEST(NetworkGames, AreKeptWithOpponentAndSide) {
    const TempFolder folder;
    {
        KeeperTable t(folder.Name());
        t.net.NetConnected = t.net.InGame = true;
        t.net.PlayingBlue = true;
        t.port.opponent = "Ann\xE9"; // in the wire's code page
        t.Move("4E", "4D");
        t.net.NetConnected = t.net.InGame = false; // the link is lost
        t.port.opponent.clear();
    }
    KeeperTable t(folder.Name());
    EXPECT_NE(t.bar.line.text.find(" against Ann\u00e9? You played Blue."), std::string::npos)
        << t.bar.line.text;
    t.keeper.Choose(BarChoice::GoOn);
    t.main.NewGame();
    EXPECT_EQ(t.bar.line.text, "The game before, against Ann\u00e9, is kept. You played Blue.");
}

TEST(NetworkGames, KeepWhatWasSaid) {
    const TempFolder folder;
    {
        KeeperTable t(folder.Name());
        t.net.NetConnected = t.net.InGame = true;
        t.port.opponent = "Ann";
        t.transcript = "Ann: caf\xE9?\r\n";
        t.Move("4E", "4D");
        t.net.NetConnected = t.net.InGame = false;
        t.transcript += "The connection is lost.\r\n";
        t.keeper.ClientCloses();
        t.transcript = "another lobby\r\n";
        t.Move("4C", "4D");
        t.keeper.Close();
    }
    const std::string kept = FilesIn(folder.Name(), "unfinished").at(0);
    EXPECT_EQ(platform::TextFromFile(GetBytes(kept + ".txt")),
              "Ann: caf\u00e9?\r\nThe connection is lost.\r\n");

    KeeperTable t(folder.Name());
    t.keeper.Choose(BarChoice::GoOn);
    t.main.NewGame();
    t.Move("4E", "4D");
    t.keeper.Close();
    const auto texts = FilesIn(folder.Name(), "games", ".tsg.txt");
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_NE(texts.front().find("Bubba against Ann, unfinished #1"), std::string::npos) << texts.front();
    EXPECT_TRUE(FilesIn(folder.Name(), "unfinished", ".txt").empty());
}

TEST(FinishedGames, GoToTheLibraryAndAreNotOffered) {
    const TempFolder folder;
    std::string last;
    {
        KeeperTable t(folder.Name());
        Dice dice(15);
        t.PlayTurn(PlayUntil(t, dice, [](const CompleteTurn& next) { return next.wins; }));
        last = TextOf(AtRest(t.game));
        ASSERT_EQ(t.game.GameState, kGameOver) << t.port.message;
        t.keeper.Close();
    }
    const auto games = FilesIn(folder.Name(), "games");
    ASSERT_EQ(games.size(), 1U);
    EXPECT_TRUE(games.front().ends_with("Blue against Red #1.tsg")) << games.front();
    EXPECT_EQ(TextOf(ReadGame(games.front())), last);
    EXPECT_TRUE(FilesIn(folder.Name(), "unfinished").empty());
    KeeperTable t(folder.Name());
    EXPECT_EQ(t.bar.line, BarLine{});
    t.files.OpenGame(games.front());
    t.Click("1A");
    EXPECT_EQ(t.game.GameState, kGameOver);
    t.keeper.Close();
    EXPECT_EQ(FilesIn(folder.Name(), "games").size(), 1U) << "a game that was won before is not played again";
}

} // namespace
} // namespace tarveth::test
