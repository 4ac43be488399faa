// Save, Save As and Load: what they ask, what they write, and what the main window shows afterwards.
#include "storage/gamefiles.h"

#include "platform/file_error.h"
#include "storage/modFileIO.h"
#include "tests/storage/FilesTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace tarveth::test {
namespace {

using Lines = std::vector<std::string>;

TEST(SaveAs, AsksWithTheQuotedTitleFolderAndFilter) {
    FilesTable t;
    t.files.SaveGameAs();
    ASSERT_EQ(t.asked.dialogs.size(), 1U);
    const FileQuestion& dialog = t.asked.dialogs.front();
    EXPECT_EQ(dialog.purpose, FileQuestion::Purpose::Save);
    EXPECT_EQ(dialog.title, "Save Game As");
    EXPECT_EQ(dialog.folder, t.folder.Path().string()) << "without its trailing separator";
    EXPECT_EQ(dialog.filter, "Tarveth Games (*.TSG)|*.TSG|All Files,*.*|*.*");
}

TEST(SaveAs, ProposesTheDateAndTheOpponentWhereThereIsOne) {
    FilesTable t;
    t.files.SaveGameAs();
    EXPECT_EQ(t.asked.dialogs.back().name, "Game 11/15/2026.tsg");
    t.port.opponent = "Bubba";
    t.files.SaveGameAs();
    EXPECT_EQ(t.asked.dialogs.back().name, "Game vs Bubba 11/15/2026.tsg");
}

TEST(SaveAs, ProposesTheTitleOfAGameThatHasOne) {
    FilesTable t;
    t.record.GameTitle = " Game 1.tsg ";
    t.files.SaveGameAs();
    EXPECT_EQ(t.asked.dialogs.back().name, "Game 1.tsg");
    t.record.GameTitle = "  ";
    t.files.SaveGameAs();
    EXPECT_EQ(t.asked.dialogs.back().name, "Game 11/15/2026.tsg");
}

TEST(SaveAs, WritesTheGameWithItsTitleAndShowsTheTitle) {
    FilesTable t;
    PlayOneCapture(t);
    t.SaveAs("Game 1.tsg");
    EXPECT_EQ(GetBytes(t.folder.File("Game 1.tsg")), GameText(t.game, "Game 1.tsg"));
    EXPECT_EQ(t.record.GameTitle, "Game 1.tsg");
    EXPECT_EQ(t.record.GameFileName, t.folder.File("Game 1.tsg"));
    EXPECT_EQ(t.port.caption, "Game 1.tsg (Tarveth)");
    EXPECT_TRUE(t.asked.questions.empty());
    EXPECT_TRUE(t.port.boxes.empty());
}

TEST(SaveAs, AddsTheExtensionWhereItIsMissingAndKeepsItInCapitals) {
    FilesTable t;
    t.SaveAs("mygame");
    t.SaveAs("OTHER.TSG");
    t.SaveAs("game.txt");
    t.SaveAs("tsg");
    Lines names;
    for (const auto& entry : std::filesystem::directory_iterator(t.folder.Path()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (Lines{"OTHER.TSG", "game.txt.tsg", "mygame.tsg", "tsg.tsg"}));
}

TEST(SaveAs, TakesTheChosenNameWithoutTheBlanksAroundIt) {
    FilesTable t;
    t.asked.chosen = "  " + t.folder.File("a.tsg") + "  ";
    t.files.SaveGameAs();
    EXPECT_EQ(t.record.GameFileName, t.folder.File("a.tsg"));
}

TEST(SaveAs, CancelledOrWithoutANameChangesNothing) {
    for (const std::optional<std::string>& chosen : {std::optional<std::string>(), {""}, {"   "}}) {
        FilesTable t;
        t.record.GameTitle = "old.tsg";
        t.asked.chosen = chosen;
        t.files.SaveGameAs();
        EXPECT_EQ(t.record.GameTitle, "old.tsg");
        EXPECT_EQ(t.port.caption, "Tarveth");
        EXPECT_EQ(t.folder.FileCount(), 0U);
        EXPECT_TRUE(t.port.boxes.empty());
    }
}

TEST(SaveAs, AsksBeforeItOverwritesAFile) {
    FilesTable t;
    PutBytes(t.folder.File("a.tsg"), "old");
    t.asked.answer = YesNoCancel::Yes;
    t.SaveAs("a"); // the extension comes first, then the question
    EXPECT_EQ(t.asked.questions, Lines{t.folder.File("a.tsg") + "\nThis file already exists. Overwrite it?"});
    EXPECT_EQ(GetBytes(t.folder.File("a.tsg")), GameText(t.game, "a.tsg"));
}

TEST(SaveAs, AnsweredNoOrCancelKeepsTheOldFileAndTheOldTitle) {
    for (const YesNoCancel answer : {YesNoCancel::No, YesNoCancel::Cancel}) {
        FilesTable t;
        t.SaveAs("first.tsg");
        PutBytes(t.folder.File("a.tsg"), "old");
        t.asked.answer = answer;
        t.SaveAs("a.tsg");
        EXPECT_EQ(GetBytes(t.folder.File("a.tsg")), "old");
        EXPECT_EQ(t.record.GameTitle, "first.tsg");
        EXPECT_EQ(t.record.GameFileName, t.folder.File("first.tsg"));
        EXPECT_EQ(t.port.caption, "first.tsg (Tarveth)");
    }
}

TEST(SaveAs, OutsideTheProgramsFolderTakesTheFullPathAsTheTitle) {
    FilesTable t;
    const TempFolder other;
    t.asked.chosen = other.File("a.tsg");
    t.files.SaveGameAs();
    EXPECT_EQ(t.record.GameTitle, other.File("a.tsg"));
    EXPECT_EQ(t.port.caption, other.File("a.tsg") + " (Tarveth)");
    EXPECT_EQ(GetBytes(other.File("a.tsg")), GameText(t.game, other.File("a.tsg")));
}

TEST(SaveAs, InAProgramsFolderWithACapitalTakesTheFullPathAsTheTitle) {
    FilesTable t;
    const std::string folder = t.folder.Name() + "Games/";
    std::filesystem::create_directory(folder);
    GameFiles files(t.game, t.net, t.record, t.main, Ports{t.port, t.port, t.port, t.port, t.port}, t.asked,
                    folder);
    t.asked.chosen = folder + "a.tsg";
    files.SaveGameAs();
    EXPECT_EQ(t.record.GameTitle, folder + "a.tsg");
}

TEST(Save, OfANeverSavedGameAsksForAName) {
    FilesTable t;
    t.asked.chosen = t.folder.File("a.tsg");
    t.files.SaveGame();
    EXPECT_EQ(t.asked.dialogs.size(), 1U);
    EXPECT_EQ(t.record.GameTitle, "a.tsg");
}

TEST(Save, OfASavedGameOverwritesItsFileWithoutAsking) {
    FilesTable t;
    t.SaveAs("a.tsg");
    PlayOneCapture(t);
    t.files.SaveGame();
    EXPECT_EQ(t.asked.dialogs.size(), 1U);
    EXPECT_TRUE(t.asked.questions.empty());
    EXPECT_EQ(GetBytes(t.folder.File("a.tsg")), GameText(t.game, "a.tsg"));
    EXPECT_EQ(t.folder.FileCount(), 1U);
}

TEST(Save, AfterANewGameAsksAgain) {
    FilesTable t;
    t.SaveAs("a.tsg");
    GameRecord& record = t.record;
    record.BeginNewRecord();
    t.asked.chosen.reset();
    t.files.SaveGame();
    EXPECT_EQ(t.asked.dialogs.size(), 2U);
    EXPECT_EQ(t.asked.dialogs.back().name, "Game 11/15/2026.tsg");
}

TEST(Save, ChosenWhileAPieceMovesWaitsForTheTurnToEnd) {
    FilesTable t;
    t.settings.AnimateMoves = -1;
    t.asked.chosen = t.folder.File("a.tsg");
    t.port.onAnimate = [&] { t.main.RunCommand([&] { t.files.SaveGame(); }); };
    t.Move("4E", "4D");
    const Game read = ReadGame(t.folder.File("a.tsg"));
    EXPECT_EQ(read.Turn, Red) << "or Blue would move twice";
    EXPECT_EQ(read.lstHistory, Lines{"B:BP 4E-4D"});
}

TEST(Save, ChosenWhileACaptureMovesAsksFirstWhatComesBack) {
    FilesTable t;
    SetPosition(t.game, "turn B | BM 4D | RM 4E | RM 8A | jail BO BP");
    t.settings.AnimateMoves = -1;
    t.asked.chosen = t.folder.File("a.tsg");
    int questionsBeforeTheDialog = -1;
    t.asked.onDialog = [&] { questionsBeforeTheDialog = t.port.returnQuestions; };
    t.port.onAnimate = [&] { t.main.RunCommand([&] { t.files.SaveGame(); }); };
    t.Move("4D", "4E");
    EXPECT_EQ(questionsBeforeTheDialog, 1);
    EXPECT_EQ(t.game.GameState, kReturnPiece);
}

TEST(Load, AsksWithTheQuotedTitleFilterAndTheGamesOwnFile) {
    FilesTable t;
    t.files.LoadGame();
    t.SaveAs("a.tsg");
    t.asked.chosen.reset();
    t.files.LoadGame();
    EXPECT_EQ(t.asked.dialogs.front().name, "");
    const FileQuestion& dialog = t.asked.dialogs.back();
    EXPECT_EQ(dialog.purpose, FileQuestion::Purpose::Open);
    EXPECT_EQ(dialog.title, "Load Game");
    EXPECT_EQ(dialog.name, t.folder.File("a.tsg"));
    EXPECT_EQ(dialog.filter, "Tarveth Games (*.TSG)|*.TSG|All Files,*.*|*.*");
}

TEST(Load, PutsTheGameOnTheBoardAndShowsItsTitle) {
    FilesTable t;
    FilesTable other;
    PlayOneCapture(other);
    other.Move("6E", "6D"); // Red's turn
    WriteGame(other.game, "whatever", t.folder.File("a.tsg"));
    t.Click("4E"); // a piece is selected
    ASSERT_EQ(t.game.GameState, kPlacePiece);
    const int redraws = t.port.redraws;
    t.port.calls.clear();
    t.asked.chosen = t.folder.File("a.tsg");
    t.files.LoadGame();
    EXPECT_EQ(GameText(t.game, ""), GameText(other.game, ""));
    EXPECT_EQ(t.game.GameState, kPickPiece);
    EXPECT_EQ(t.game.CurPiece, 0);
    EXPECT_EQ(t.game.ClickX, 0);
    EXPECT_FALSE(t.port.marker);
    EXPECT_EQ(t.port.prompt, "Pick piece");
    EXPECT_EQ(t.port.player, "Red");
    EXPECT_EQ(t.port.caption, "a.tsg (Tarveth)");
    EXPECT_GT(t.port.redraws, redraws);
    EXPECT_EQ(t.port.calls, (Lines{"history", "redraw", "player Red", "caption a.tsg (Tarveth)"}));
    EXPECT_EQ(t.record.GameFileName, t.folder.File("a.tsg"));
    EXPECT_TRUE(t.port.boxes.empty());
}

TEST(Load, CancelledChangesNothing) {
    FilesTable t;
    PlayOneCapture(t);
    const Game before = t.game;
    t.files.LoadGame();
    EXPECT_EQ(t.game, before);
    EXPECT_EQ(t.port.caption, "Tarveth");
}

TEST(Load, TheGameGoesOnFromThere) {
    FilesTable t;
    PlayOneCapture(t);
    t.SaveAs("a.tsg");
    FilesTable u;
    u.files.OpenGame(t.folder.File("a.tsg"));
    t.Move("6E", "6D");
    u.Move("6E", "6D");
    EXPECT_EQ(GameText(u.game, ""), GameText(t.game, ""));
    EXPECT_EQ(u.game.lstHistory.size(), 3U);
}

TEST(Load, TakesTheWinnerOfTheGameBeforeOffTheMessageLabel) {
    FilesTable t;
    t.SaveAs("a.tsg");
    SetPosition(t.game, "turn B | BM 4D | RM 4E | jail RM RM");
    t.Move("4D", "4E");
    ASSERT_EQ(t.game.GameState, kGameOver);
    ASSERT_NE(t.port.message, "");
    t.files.OpenGame(t.folder.File("a.tsg"));
    EXPECT_EQ(t.port.message, "");
    EXPECT_EQ(t.game.GameState, kPickPiece);
    EXPECT_EQ(t.game.VictoryText, "");
}

TEST(Load, SendsTheBoardToTheOpponentInANetworkGameOnly) {
    FilesTable t;
    t.SaveAs("a.tsg");
    t.asked.chosen = t.folder.File("a.tsg");
    t.files.LoadGame();
    EXPECT_EQ(t.port.boardsSent, 0);
    t.net.NetConnected = t.net.InGame = true;
    t.files.LoadGame();
    EXPECT_EQ(t.port.boardsSent, 1);
}

TEST(Load, ForgetsTheOpponentsMovesOnTheBoardBefore) {
    FilesTable t;
    t.SaveAs("a.tsg");
    t.net.NetConnected = t.net.InGame = true;
    t.asked.onDialog = [&] {
        t.net.RemoteX = TextQueue("4|4|");
        t.net.RemoteY = TextQueue("5|4|");
    };
    t.main.RunCommand([&] { t.files.LoadGame(); });
    t.main.RunPasses();
    EXPECT_EQ(t.game.PieceTable, TestGame().game.PieceTable);
    EXPECT_TRUE(t.game.lstHistory.empty());
    EXPECT_EQ(t.port.boardsSent, 1);
}

TEST(Load, TheNextGamesLogIsNamedAfterTheLoadedOne) {
    FilesTable t;
    t.settings.AutoSaveLog = -1;
    PlayOneCapture(t);
    t.SaveAs("a.tsg");
    FilesTable u;
    u.settings.AutoSaveLog = -1;
    u.files.OpenGame(t.folder.File("a.tsg"));
    u.record.BeginNewRecord();
    EXPECT_EQ(GetBytes(t.folder.File("a.tsg.log")), "B:BP 4E-4D\r\nR:RO 4C-4D cBP\r\n");
    EXPECT_EQ(u.folder.FileCount(), 0U) << "no lastgame.log";
    EXPECT_EQ(u.record.GameFileName, "");
}

TEST(ReceivedBoard, LeavesTheLogOfTheGameBeforeAndForgetsItsFile) {
    FilesTable t;
    t.settings.AutoSaveLog = -1;
    PlayOneCapture(t);
    t.SaveAs("a.tsg");
    t.record.BeginReceivedRecord();
    EXPECT_EQ(GetBytes(t.folder.File("a.tsg.log")), "B:BP 4E-4D\r\nR:RO 4C-4D cBP\r\n");
    EXPECT_EQ(t.record.GameTitle, "");
    EXPECT_EQ(t.record.GameFileName, "") << "saving again must not overwrite the other game";
}

TEST(ReceivedBoard, InAGameWithoutMovesKeepsTheLogThatIsThere) {
    FilesTable t;
    t.settings.AutoSaveLog = -1;
    PutBytes(t.folder.File("lastgame.log"), "B:BP 4E-4D\r\n"); // as the New Game before the board wrote it
    t.record.BeginReceivedRecord();
    EXPECT_EQ(GetBytes(t.folder.File("lastgame.log")), "B:BP 4E-4D\r\n");
}

TEST(ReceivedBoard, LeavesNoLogWhereNoneIsWanted) {
    FilesTable t;
    t.settings.AutoSaveLog = 0;
    PlayOneCapture(t);
    t.record.BeginReceivedRecord();
    EXPECT_EQ(t.folder.FileCount(), 0U);
}

TEST(DialogStart, FollowsAPathToAFolderThatIsThere) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.File("deep"));
    const std::string here = folder.Path().string();
    using Start = std::pair<std::string, std::string>;
    const auto start = [&](const std::string& name) { return DialogStart({.folder = here, .name = name}); };
    EXPECT_EQ(start("a.tsg"), Start(here, "a.tsg"));
    EXPECT_EQ(start("deep/a.tsg"), Start(folder.File("deep"), "a.tsg"));
    EXPECT_EQ(start(folder.File("deep/a.tsg")), Start(folder.File("deep"), "a.tsg"));
    EXPECT_EQ(start(folder.File("gone/a.tsg")), Start(here, "a.tsg"));
    EXPECT_EQ(start("Game 11/15/2026.tsg"), Start(here, "Game 11-15-2026.tsg"));
    EXPECT_EQ(start(""), Start(here, ""));
}

} // namespace
} // namespace tarveth::test
