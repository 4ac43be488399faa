// Saving and loading with the keyboard, in the system's own dialogs.

#include "storage/modFileIO.h"
#include "tests/TestGame.h"
#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarveth::harness {
namespace {

using Lines = std::vector<std::string>;

constexpr char kIni[] = "[Options]\r\nGameBoard=1\r\nAnimateMoves=0\r\nHistory=-1\r\nAutoSaveLog=-1\r\n";

// The title of a game in the folder: its plain name, unless the folder's name has a capital.
std::string TitleIn(const GameFolder& folder, const std::string& file) {
    const std::string path = (folder.Path() / file).string();
    const bool capital = std::any_of(path.begin(), path.end() - static_cast<std::ptrdiff_t>(file.size()),
                                     [](char c) { return c >= 'A' && c <= 'Z'; });
    return capital ? path : file;
}

// What the core writes for a game of these moves, each "4E-4D".
std::string TextOf(const Lines& moves, const std::string& title) {
    test::TestGame table;
    for (const std::string& move : moves)
        table.Move(move.substr(0, 2), move.substr(3));
    return GameText(table.game, title);
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t where = text.find(from);
    return where == std::string::npos ? text : text.replace(where, from.size(), to);
}

class SavedGamesDesk : public testing::Test {
protected:
    void Play(GameDesk& desk, const std::string& move) {
        desk.Move(move.substr(0, 2), move.substr(3));
        ASSERT_TRUE(desk.PromptBecomes("Pick piece"));
    }
    // Opens a file dialog from the File menu and waits until it can be answered.
    Window OpenDialog(GameDesk& desk, std::string_view item, const std::string& title) {
        desk.Choose("F", item);
        const Window dialog = desk.program.WaitForWindow(title);
        EXPECT_TRUE(desk.reader.WaitFor(WithRoleAndName("push button", "Cancel"))) << desk.reader.Outline();
        return dialog;
    }
    // The same, and answers it with a path.
    void Answer(GameDesk& desk, std::string_view item, const std::string& title, const std::string& path) {
        desk.Choose("F", item);
        desk.AnswerFileDialog(title, path);
    }
    void SaveAs(GameDesk& desk, const std::string& path) { Answer(desk, "a", "Save Game As", path); }
    void Load(GameDesk& desk, const std::string& path) { Answer(desk, "l", "Load Game", path); }

    std::string Path(const std::string& file) const { return (folder.Path() / file).string(); }
    bool FileBecomes(const std::string& file, const std::string& bytes) const {
        return WaitUntil([&] { return folder.Read(file) == bytes; });
    }
    bool TitleBecomes(const GameDesk& desk, const std::string& file) const {
        return WaitUntil([&] { return desk.window.Title() == TitleIn(folder, file) + " (Tarveth)"; });
    }

    const GameFolder folder{kIni};
};

TEST_F(SavedGamesDesk, SaveAsThenSaveThenTheOverwriteQuestion) {
    GameDesk desk(folder);
    const std::string title = TitleIn(folder, "mygame.tsg");
    const std::string afterOne = TextOf({"4E-4D"}, title);
    const std::string afterTwo = TextOf({"4E-4D", "4C-4D"}, title);
    Play(desk, "4E-4D");
    ASSERT_NO_FATAL_FAILURE(SaveAs(desk, Path("mygame")));
    EXPECT_TRUE(FileBecomes("mygame.tsg", afterOne)) << folder.Read("mygame.tsg");
    EXPECT_TRUE(TitleBecomes(desk, "mygame.tsg")) << desk.window.Title();

    Play(desk, "4C-4D");
    desk.Choose("F", "s");
    EXPECT_TRUE(FileBecomes("mygame.tsg", afterTwo)) << "saved again without a question";

    Play(desk, "6E-6D");
    const std::string question = Path("mygame.tsg") + "\nThis file already exists. Overwrite it?";
    for (const char* key : {"Alt+N", "Escape", "Alt+Y"}) {
        EXPECT_EQ(folder.Read("mygame.tsg"), afterTwo) << "before " << key;
        ASSERT_NO_FATAL_FAILURE(SaveAs(desk, Path("mygame.tsg")));
        const Window box = desk.MessageBox();
        EXPECT_EQ(desk.MessageBoxText(), question);
        desk.screen.Key(key);
        EXPECT_TRUE(box.WaitUntilGone()) << key;
        desk.WaitUntilAtRest();
    }
    EXPECT_TRUE(FileBecomes("mygame.tsg", TextOf({"4E-4D", "4C-4D", "6E-6D"}, title)));
}

TEST_F(SavedGamesDesk, SaveProposesANameThatReturnAccepts) {
    GameDesk desk(folder);
    const Window dialog = OpenDialog(desk, "s", "Save Game As");
    desk.screen.Key("Return");
    ASSERT_TRUE(dialog.WaitUntilGone());
    desk.WaitUntilAtRest();
    Lines games;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        if (entry.path().extension() == ".tsg")
            games.push_back(entry.path().filename().string());
    ASSERT_EQ(games.size(), 1U);
    EXPECT_TRUE(games.front().starts_with("Game ")) << games.front();
    EXPECT_TRUE(TitleBecomes(desk, games.front())) << desk.window.Title();
}

TEST_F(SavedGamesDesk, LoadPutsTheGameWithItsHistoryOnTheBoard) {
    const Lines moves{"4E-4D", "4C-4D", "6E-6D"};
    folder.Write("small.tsg", TextOf(moves, "x"));
    GameDesk desk(folder);
    ASSERT_NO_FATAL_FAILURE(Load(desk, Path("small.tsg")));
    EXPECT_TRUE(TitleBecomes(desk, "small.tsg")) << desk.window.Title();
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    EXPECT_EQ(desk.Text("lblMoveStatus"), "Pick piece");
    EXPECT_EQ(desk.History(), (Lines{"B:BP 4E-4D", "R:RO 4C-4D cBP", "B:BP 6E-6D"}));
    desk.KeepShot("loaded-game");

    desk.Choose("F", "n");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Blue"));
    desk.WaitUntilAtRest();
    EXPECT_EQ(folder.Read("small.tsg.log"), "B:BP 4E-4D\r\nR:RO 4C-4D cBP\r\nB:BP 6E-6D\r\n");
    EXPECT_EQ(folder.Read("lastgame.log"), "") << "only what the start wrote";
    EXPECT_EQ(desk.window.Title(), "Tarveth");
    EXPECT_TRUE(desk.History().empty());
}

// The file of a game with more history than the list can show at once.
std::string LongGame(const std::string& lastLine) {
    test::TestGame table;
    table.game.lstHistory.assign(40, "R:RM 1A-1B");
    table.game.lstHistory.front() = "B:BM 8H-8G";
    table.game.lstHistory.push_back(lastLine);
    return GameText(table.game, "long.tsg");
}

// Is the line selected and in view, and the first one not?
bool LineBecomesSelected(const GameDesk& desk, const std::string& line) {
    const auto cell = [](const std::string& name) {
        return [=](const AccessibleNode& node) {
            return node.role == "table cell" && node.name == name && node.extents.height > 0;
        };
    };
    const auto selected = [=](const AccessibleNode& node) {
        return cell(line)(node) && node.Has("selected");
    };
    return WaitUntil([&] { return desk.reader.Find(selected) && !desk.reader.Find(cell("B:BM 8H-8G")); });
}

TEST_F(SavedGamesDesk, TheNewestLineOfALoadedHistoryIsSelectedAndInView) {
    folder.Write("long.tsg", LongGame("  RP r2G"));
    folder.Write("longer.tsg", LongGame("R:RO 4C-4D cBP"));
    GameDesk desk(folder, {.arguments = {"long.tsg"}});
    EXPECT_TRUE(LineBecomesSelected(desk, "  RP r2G")) << "opened before the window was there";
    ASSERT_NO_FATAL_FAILURE(Load(desk, Path("longer.tsg")));
    EXPECT_TRUE(LineBecomesSelected(desk, "R:RO 4C-4D cBP"));
    Play(desk, "4E-4D");
    EXPECT_TRUE(LineBecomesSelected(desk, "B:BP 4E-4D"));
}

TEST_F(SavedGamesDesk, TheNewestLineIsSelectedAndInViewWhenTheHistoryIsSwitchedOnLater) {
    folder.Write("tarveth.ini", "[Options]\r\nHistory=0\r\nAnimateMoves=0\r\n");
    folder.Write("long.tsg", LongGame("  RP r2G"));
    GameDesk desk(folder, {.arguments = {"long.tsg"}});
    desk.Choose("O", "o");
    const Window options = desk.program.WaitForWindow("Tarveth Options");
    desk.WaitUntilAtRest();
    // The window manager may still be moving the dialog, so the box is looked for until it has its mark.
    const auto box = WithRoleAndName("check box", "Show Move History");
    ASSERT_TRUE(WaitUntil([&] {
        const auto found = desk.reader.WaitFor(box);
        if (found && !found->Has("checked")) {
            desk.screen.Click(found->extents.Centre());
            desk.WaitUntilAtRest();
        }
        return found && found->Has("checked");
    })) << desk.reader.Outline();
    desk.screen.Key("Alt+o");
    ASSERT_TRUE(options.WaitUntilGone());
    EXPECT_TRUE(LineBecomesSelected(desk, "  RP r2G"));
}

TEST_F(SavedGamesDesk, ABadFileIsToldWithItsLineAndLeavesTheGame) {
    folder.Write("bad.tsg", Replaced(TextOf({}, ""), " 26 ", " 27 "));
    GameDesk desk(folder);
    Play(desk, "4E-4D");
    const Picture board = desk.Board();
    ASSERT_NO_FATAL_FAILURE(Load(desk, Path("bad.tsg")));
    const Window box = desk.MessageBox();
    EXPECT_EQ(desk.MessageBoxText(),
              "The game is not loaded.\n" + Path("bad.tsg") + ", line 4: the number of pieces must be 26.");
    desk.screen.Key("Return");
    ASSERT_TRUE(box.WaitUntilGone());
    EXPECT_TRUE(desk.Board() == board);
    EXPECT_EQ(desk.History(), Lines{"B:BP 4E-4D"});
    EXPECT_EQ(desk.window.Title(), "Tarveth");
}

TEST_F(SavedGamesDesk, AGameOnTheCommandLineIsOpenedAtTheStart) {
    folder.Write("small.tsg", TextOf({"4E-4D"}, "x"));
    std::filesystem::create_directory(folder.Path() / "elsewhere");
    GameDesk desk(folder, {.arguments = {"elsewhere/../small.tsg"}});
    EXPECT_TRUE(TitleBecomes(desk, "small.tsg")) << desk.window.Title();
    EXPECT_EQ(desk.Text("lblCurPlayer"), "Red");
    EXPECT_EQ(desk.History(), Lines{"B:BP 4E-4D"});
    Play(desk, "4C-4D");
    desk.Choose("F", "s");
    EXPECT_TRUE(FileBecomes("small.tsg", TextOf({"4E-4D", "4C-4D"}, TitleIn(folder, "small.tsg"))));
}

TEST_F(SavedGamesDesk, ABadFileOnTheCommandLineIsToldOverANewGame) {
    folder.Write("bad.tsg", "no game\r\n");
    GameDesk desk(folder, {.arguments = {Path("bad.tsg")}});
    const Window box = desk.MessageBox();
    EXPECT_EQ(desk.MessageBoxText(), "The game is not loaded.\n" + Path("bad.tsg") +
                                         ", line 2: the file ends before the game is complete.");
    desk.screen.Key("Return");
    ASSERT_TRUE(box.WaitUntilGone());
    EXPECT_EQ(desk.window.Title(), "Tarveth");
    EXPECT_EQ(desk.Text("lblCurPlayer"), "Blue");
}

} // namespace
} // namespace tarveth::harness
