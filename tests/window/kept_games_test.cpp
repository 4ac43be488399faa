// The bar above the board: games that are kept when the program ends, is killed, or begins another game.

#include "storage/notation.h"
#include "tests/PickTurn.h"
#include "tests/TestGame.h"
#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <optional>
#include <thread>

namespace tarveth::harness {
namespace {

using Lines = std::vector<std::string>;

constexpr char kIni[] = "[Options]\r\nAnimateMoves=0\r\nHistory=-1\r\n";
constexpr char kReplaced[] = "The game before is kept.";

class KeptGamesDesk : public testing::Test {
protected:
    static bool OffersGame(const GameDesk& desk) {
        return WaitUntil([&] { return desk.Text("lblBar").starts_with("Go on with the game of "); });
    }
    static bool HasBar(const GameDesk& desk) {
        const auto bar = desk.reader.Find(WithId("lblBar"));
        return bar && bar->Has("showing");
    }
    static void Press(GameDesk& desk, const std::string& caption) {
        const auto button = desk.reader.WaitFor(WithRoleAndName("push button", caption));
        ASSERT_TRUE(button) << desk.reader.Outline();
        desk.screen.Click(button->extents.Centre());
    }
    static void Play(GameDesk& desk, const std::string& from, const std::string& to) {
        desk.ForgetBoardArea(); // the bar moves it
        desk.Move(from, to);
        ASSERT_TRUE(desk.PromptBecomes("Pick piece"));
    }
    // Leaves a game of two turns behind.
    Lines LeaveGame() const {
        GameDesk desk(folder);
        Play(desk, "4E", "4D");
        Play(desk, "4C", "4D");
        desk.WaitUntilAtRest();
        EXPECT_EQ(desk.Close(), 0);
        EXPECT_EQ(desk.program.Output(), "");
        return {"B:BP 4E-4D", "R:RO 4C-4D cBP"};
    }

    const GameFolder folder{kIni};
};

TEST_F(KeptGamesDesk, WithoutAnyThereIsNoBar) {
    GameDesk desk(folder);
    EXPECT_FALSE(desk.reader.Find(WithId("lblBar")));
    const Rect board = desk.BoardArea();
    Play(desk, "4E", "4D");
    EXPECT_FALSE(desk.reader.Find(WithId("lblBar"))) << "nor while a game is played";
    EXPECT_EQ(desk.Place("picDisplay"), board);
}

TEST_F(KeptGamesDesk, AGameThatWasNotFinishedGoesOnAtTheNextStart) {
    const Lines left = LeaveGame();
    GameDesk desk(folder);
    ASSERT_TRUE(OffersGame(desk)) << desk.reader.Outline();
    EXPECT_TRUE(desk.History().empty());
    desk.KeepShot("bar-offer");
    Press(desk, "Go on");
    EXPECT_TRUE(WaitUntil([&] { return desk.History() == left; }));
    EXPECT_TRUE(WaitUntil([&] { return !HasBar(desk); }));
    EXPECT_EQ(desk.Text("lblCurPlayer"), "Blue");
    desk.screen.Key("Up"); // the keys are the board's again
    desk.screen.Key("Return");
    EXPECT_EQ(desk.Close(), 0);
}

TEST_F(KeptGamesDesk, AGameOfAProgramThatWasKilledGoesOnToo) {
    {
        GameDesk desk(folder);
        Play(desk, "4E", "4D");
        desk.WaitUntilAtRest();
    } // the program is killed here
    GameDesk desk(folder);
    ASSERT_TRUE(OffersGame(desk));
    Press(desk, "Go on");
    EXPECT_TRUE(WaitUntil([&] { return desk.History() == Lines{"B:BP 4E-4D"}; }));
}

TEST_F(KeptGamesDesk, OneThatIsDiscardedIsNotOfferedAgain) {
    LeaveGame();
    {
        GameDesk desk(folder);
        ASSERT_TRUE(OffersGame(desk));
        const Rect board = desk.BoardArea();
        Press(desk, "Discard");
        EXPECT_TRUE(WaitUntil([&] { return !HasBar(desk); }));
        EXPECT_TRUE(WaitUntil([&] { return desk.Place("picDisplay").y < board.y; }))
            << "the board has its place again";
        EXPECT_EQ(desk.Close(), 0);
    }
    const GameDesk desk(folder);
    EXPECT_FALSE(HasBar(desk));
}

TEST_F(KeptGamesDesk, OneThatIsOfferedIsSavedUnderAName) {
    LeaveGame();
    GameDesk desk(folder);
    ASSERT_TRUE(OffersGame(desk));
    Press(desk, "Save as…");
    desk.AnswerFileDialog("Save Game As", (folder.Path() / "kept.tsg").string());
    EXPECT_TRUE(WaitUntil([&] { return folder.Read("kept.tsg").ends_with("R:RO 4C-4D cBP\r\n"); }));
    EXPECT_TRUE(WaitUntil([&] { return !HasBar(desk); }));
    EXPECT_EQ(desk.window.Title(), "Tarveth");
}

TEST_F(KeptGamesDesk, ANewGameCanBeTakenBackWhileItHasNoTurn) {
    GameDesk desk(folder);
    Play(desk, "4E", "4D");
    desk.Choose("F", "n");
    ASSERT_TRUE(desk.TextBecomes("lblBar", kReplaced));
    desk.KeepShot("bar-replaced");
    Press(desk, "Bring it back");
    EXPECT_TRUE(WaitUntil([&] { return desk.History() == Lines{"B:BP 4E-4D"}; }));
    EXPECT_TRUE(WaitUntil([&] { return !HasBar(desk); }));

    desk.Choose("F", "n");
    ASSERT_TRUE(WaitUntil([&] { return HasBar(desk); }));
    Play(desk, "6E", "6D");
    EXPECT_TRUE(WaitUntil([&] { return !HasBar(desk); })) << "the new game has a turn";
}

TEST_F(KeptGamesDesk, ButtonsAreReachedByKeys) {
    const Lines left = LeaveGame();
    GameDesk desk(folder);
    ASSERT_TRUE(OffersGame(desk));
    const auto focused = [&] {
        return desk.reader.Find([](const AccessibleNode& node) {
            return node.role == "push button" && node.name == "Go on" && node.Has("focused");
        });
    };
    for (int tabs = 0; tabs < 6 && !focused(); ++tabs) {
        desk.screen.Key("Tab");
        desk.WaitUntilAtRest();
    }
    ASSERT_TRUE(focused()) << desk.reader.Outline();
    desk.screen.Key("space");
    EXPECT_TRUE(WaitUntil([&] { return desk.History() == left; }));
}

TEST_F(KeptGamesDesk, ADamagedFileIsToldInOneLineAndPutAway) {
    std::filesystem::create_directory(folder.Path() / "unfinished");
    folder.Write("unfinished/1-0.tsg", "Tarveth 1.00\r\n");
    GameDesk desk(folder);
    EXPECT_TRUE(
        WaitUntil([&] { return desk.Text("lblBar").starts_with("A game that was kept is damaged."); }));
    desk.KeepShot("bar-problem");
    Press(desk, "Close");
    EXPECT_TRUE(WaitUntil([&] { return !HasBar(desk); }));
    EXPECT_TRUE(folder.Has("unfinished/1-0.tsg.damaged"));
}

TEST_F(KeptGamesDesk, RecentGamesAreInTheViewMenuAndOpenAgain) {
    folder.Write("recent.txt", (folder.Path() / "gone.tsg").string() + "\r\n");
    GameDesk desk(folder);
    Play(desk, "4E", "4D");
    desk.Choose("F", "a");
    desk.AnswerFileDialog("Save Game As", (folder.Path() / "first.tsg").string());
    ASSERT_TRUE(WaitUntil([&] { return folder.Read("recent.txt").find("first.tsg") != std::string::npos; }));
    desk.Choose("F", "n");
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Blue"));

    desk.Choose("V", "r");
    const auto item = [&](const std::string& name) { return desk.reader.Find(WithName(name)); };
    ASSERT_TRUE(WaitUntil([&] {
        const auto first = item("1  first.tsg");
        return first && first->Has("showing");
    })) << desk.reader.Outline();
    EXPECT_TRUE(item("1  first.tsg")->Has("sensitive"));
    ASSERT_TRUE(item("2  gone.tsg"));
    EXPECT_FALSE(item("2  gone.tsg")->Has("sensitive")) << "its file is missing";
    desk.screen.Key("1");
    EXPECT_TRUE(WaitUntil([&] { return desk.History() == Lines{"B:BP 4E-4D"}; }));
}

TEST_F(KeptGamesDesk, TheNewestRecentGameIsOpenedByLast) {
    {
        GameDesk desk(folder);
        Play(desk, "4E", "4D");
        desk.Choose("F", "a");
        desk.AnswerFileDialog("Save Game As", (folder.Path() / "first.tsg").string());
        ASSERT_TRUE(WaitUntil([&] { return folder.Has("recent.txt"); }));
        EXPECT_EQ(desk.Close(), 0);
    }
    {
        GameDesk desk(folder, {.arguments = {"--last"}});
        EXPECT_TRUE(WaitUntil([&] { return desk.History() == Lines{"B:BP 4E-4D"}; }));
        EXPECT_NE(desk.window.Title().find("first.tsg"), std::string::npos);
    }
    std::filesystem::remove(folder.Path() / "first.tsg");
    GameDesk desk(folder, {.arguments = {"--last"}});
    EXPECT_TRUE(desk.History().empty()) << "a new game where there is none";
    EXPECT_EQ(desk.window.Title(), "Tarveth");
}

// A dark theme, a dense screen and a small window: nothing lies over another thing.
TEST_F(KeptGamesDesk, TheBarLeavesEverythingItsPlace) {
    struct Surroundings {
        const char* name;
        std::map<std::string, std::string> environment;
        int scale;
        Point size;
    };
    LeaveGame();
    for (const Surroundings& around :
         {Surroundings{"bar-small", {}, 1, {640, 480}},
          Surroundings{"bar-dark", {{"GTK_THEME", "Adwaita:dark"}}, 1, {900, 800}},
          Surroundings{"bar-dense", {}, 2, {1280, 960}}}) {
        GameDesk desk(folder, {.environment = around.environment, .scale = around.scale});
        desk.window.MoveTo({0, 0});
        desk.window.Resize(around.size.x, around.size.y);
        desk.WaitUntilAtRest();
        ASSERT_TRUE(OffersGame(desk));
        const Rect bar = desk.Place("lblBar");
        const Rect board = desk.Place("picDisplay");
        const Rect jail = desk.Place("picDisplayJail");
        EXPECT_LE(bar.y + bar.height, board.y) << around.name;
        EXPECT_LE(jail.y + jail.height, desk.window.ClientArea().y + desk.window.ClientArea().height)
            << around.name;
        desk.KeepShot(around.name);
        EXPECT_EQ(desk.Close(), 0);
    }
}

// A game at a test's own board, which the program's is held against.
class Model {
public:
    // A random turn that returns no piece and does not win.
    CompleteTurn NextTurn(test::Dice& dice) {
        for (;;)
            if (const CompleteTurn turn = test::PickTurn(table_.game, dice);
                turn.returnKind == 0 && !turn.wins)
                return turn;
    }
    void Play(const CompleteTurn& turn) {
        before_.push_back(table_.game);
        table_.Move(SquareText(turn.from), SquareText(turn.to));
    }
    // Takes the game as the program shows it. Gives the number of turns that it lacks; nothing when it is
    // another game.
    std::optional<std::size_t> Take(const Lines& history) {
        for (std::size_t lacking = 0;; ++lacking) {
            if (history == table_.game.lstHistory)
                return lacking;
            if (before_.empty())
                return std::nullopt;
            table_.game = before_.back();
            before_.pop_back();
        }
    }
    static std::string SquareText(Square square) { return tarveth::SquareText(square.column, square.row); }

private:
    test::TestGame table_;
    std::vector<Game> before_; // each turn
};

// How many kills the test below makes: more when TARVETH_KILLS says so.
int CountKills() {
    const char* kills = std::getenv("TARVETH_KILLS");
    return kills == nullptr ? 4 : std::atoi(kills);
}

// Each start goes on with the game of the program that was killed before, plays some turns at full speed, and
// is killed at a random moment. Of the last click it is not always known whether the program has got it
// before.
TEST_F(KeptGamesDesk, KillsAtAnyMomentCostAtMostTheLastTurn) {
    test::Dice dice(9);
    Model model;
    std::size_t mayLack = 0;
    for (int kills = 0; kills < CountKills(); ++kills) {
        GameDesk desk(folder);
        if (kills > 0) {
            ASSERT_TRUE(OffersGame(desk)) << "after kill " << kills;
            Press(desk, "Go on");
            ASSERT_TRUE(WaitUntil([&] { return !HasBar(desk); }));
            desk.WaitUntilAtRest();
            const std::optional<std::size_t> lacking = model.Take(desk.History());
            ASSERT_TRUE(lacking.has_value()) << "another game after kill " << kills;
            EXPECT_LE(*lacking, mayLack) << "after kill " << kills;
        }
        const int turns = dice.Between(2, 4);
        const bool isSeen = dice.Percent(50);
        mayLack = isSeen ? 1 : 2;
        for (int turn = 1; turn <= turns; ++turn) {
            const CompleteTurn next = model.NextTurn(dice);
            model.Play(next);
            desk.Move(Model::SquareText(next.from), Model::SquareText(next.to));
            if (turn < turns || isSeen) {
                ASSERT_TRUE(desk.PromptBecomes("Pick piece"));
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(dice.Below(30'000)));
    }
}

} // namespace
} // namespace tarveth::harness
