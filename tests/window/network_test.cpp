// The whole: a lobby and two games, played with mouse and keys alone.

#include "tests/window/ClientDesk.h"
#include "tests/window/RecordedGame.h"

#include <gtest/gtest.h>

#include <csignal>

#include <sys/types.h>

namespace tarveth::harness {
namespace {

// The left or the right half of the screen: the board above, the client window below it.
std::string IniOf(const std::string& nick, bool right) {
    const std::string left = right ? "12000" : "0"; // twips
    return "[Options]\r\nAnimateMoves=0\r\nHistory=-1\r\nAutoSaveLog=-1\r\nNickname=" + nick +
           "\r\n[Position]\r\nX=" + left + "\r\nY=0\r\nW=11700\r\nH=11700\r\n[ClientPosition]\r\nL=" + left +
           "\r\nT=11850\r\nW=11700\r\nH=5800\r\n";
}

struct Player {
    Player(const std::string& nick, bool right, const std::string& server)
        : folder(IniOf(nick, right)), desk(folder), client(desk, server) {}

    // Answers a file dialog with a path.
    void SaveAs(const std::string& file) {
        const std::string path = (folder.Path() / file).string();
        ASSERT_TRUE(desk.window.Activate());
        desk.WaitUntilAtRest();
        desk.Choose("F", "a");
        desk.AnswerFileDialog("Save Game As", path);
        ASSERT_TRUE(WaitUntil([&] { return folder.Has(file); }));
    }

    // What was saved, without the folder's name.
    std::string Saved(const std::string& file) const {
        std::string text = folder.Read(file);
        const std::string path = folder.Path().string() + '/';
        for (std::size_t at = text.find(path); at != std::string::npos; at = text.find(path)) {
            text.erase(at, path.size());
        }
        return text;
    }

    bool Awaits(const std::string& side, const std::string& prompt) const {
        return desk.TextBecomes("lblCurPlayer", side) && desk.PromptBecomes(prompt);
    }

    GameFolder folder;
    GameDesk desk;
    ClientDesk client;
};

class Network : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(ada.client.UsersBecome({"Ada", "Bob"}));
        ASSERT_TRUE(bob.client.UsersBecome({"Ada", "Bob"}));
    }

    // Ada invites, and so plays Blue.
    void BeginGame() {
        ada.client.Select("Bob");
        ada.client.Press("btnInvite");
        bob.client.Join("Ada");
        ASSERT_TRUE(ada.client.TitleBecomes("Internet Tarveth (Ada vs. Bob)"));
        ASSERT_TRUE(bob.client.TitleBecomes("Internet Tarveth (Bob vs. Ada)"));
        ASSERT_TRUE(ada.desk.TextBecomes("lblMessage", "Board sent, commence play."));
        ASSERT_TRUE(bob.Awaits("Blue", "Pick piece"));
    }

    // Whose step is the one with that number?
    Player& Actor(std::size_t step) {
        const std::string& line = game.steps[step];
        const char side = line.size() == 1         ? game.steps[step + 1][2]
                          : line.starts_with("  ") ? line[2]
                                                   : line[0];
        return side == 'B' ? ada : bob;
    }

    void PlayStep(std::size_t i) {
        const std::string& step = game.steps[i];
        GameDesk& desk = Actor(i).desk;
        if (step.size() == 1) {
            const Window question = desk.program.WaitForWindow("Return");
            desk.WaitUntilAtRest();
            desk.screen.Click(desk.Place(step == "O" ? "picReturnOfficer" : "picReturnPawn").Centre());
            ASSERT_TRUE(question.WaitUntilGone()) << step;
            return;
        }
        ASSERT_TRUE(Actor(i).Awaits(&Actor(i) == &ada ? "Blue" : "Red", PromptBefore(step))) << step;
        if (step.starts_with("  ")) {
            desk.ClickSquare(step.substr(6));
        } else {
            desk.Move(step.substr(5, 2), step.substr(8, 2));
        }
    }

    void PlaySteps(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_NO_FATAL_FAILURE(PlayStep(i)) << game.steps[i];
        }
    }

    RecordedGame game{TARVETH_SOURCE_DIR "/tests/data/imperial.moves"};
    Lobby lobby;
    Player ada{"Ada", false, lobby.Address()};
    Player bob{"Bob", true, lobby.Address()};
};

TEST_F(Network, PlaysAWholeGameAndAnotherWithTheSidesSwapped) {
    ada.client.Enter("hello Bob");
    ASSERT_TRUE(bob.client.Hears("Ada: hello Bob"));
    bob.client.Enter("hello Ada");
    ASSERT_TRUE(ada.client.Hears("Bob: hello Ada"));
    ASSERT_NO_FATAL_FAILURE(BeginGame());
    bob.client.Enter("/p good luck");
    ASSERT_TRUE(ada.client.Hears("Bob:[p] good luck"));

    ASSERT_NO_FATAL_FAILURE(PlaySteps(game.steps.size()));
    for (Player* player : {&ada, &bob}) {
        EXPECT_TRUE(player->desk.PromptBecomes("Game Over"));
        EXPECT_EQ(player->desk.Text("lblMessage"), game.victory);
        EXPECT_EQ(player->desk.History(), game.History());
        EXPECT_TRUE(player->client.Hears("Bob: *** Bob (playing Red) has defeated Ada! ***"));
        EXPECT_TRUE(player->client.Hears("Ada: *** Bob (playing Red) has defeated Ada! ***"));
        ASSERT_NO_FATAL_FAILURE(player->SaveAs("end.tsg"));
    }
    EXPECT_TRUE(ada.desk.Board() == bob.desk.Board());
    EXPECT_EQ(ada.Saved("end.tsg"), bob.Saved("end.tsg"));

    bob.client.Choose("A", "s");
    ASSERT_TRUE(bob.desk.window.Activate());
    bob.desk.WaitUntilAtRest();
    bob.desk.Choose("F", "n");
    ASSERT_TRUE(ada.Awaits("Blue", "Pick piece"));
    ASSERT_TRUE(bob.Awaits("Blue", "Pick piece"));
    bob.desk.Move("4E", "4D");
    ASSERT_TRUE(ada.Awaits("Red", "Pick piece"));
    ada.desk.Move("4C", "4D");
    ASSERT_TRUE(bob.Awaits("Blue", "Pick piece"));
    EXPECT_EQ(ada.desk.History(), bob.desk.History());
    EXPECT_EQ(ada.desk.History().size(), 2U);

    bob.client.Press("btnBreak");
    EXPECT_TRUE(bob.client.Hears("You have broken the connection with Ada."));
    EXPECT_TRUE(ada.client.Hears("Bob has broken the connection with you."));
    EXPECT_TRUE(ada.client.TitleBecomes("Internet Tarveth (Ada vs. <nobody>)"));
}

TEST_F(Network, WritesTheSameLogOnBothSides) {
    ASSERT_NO_FATAL_FAILURE(BeginGame());
    ASSERT_NO_FATAL_FAILURE(PlaySteps(4));
    const std::vector<std::string> history = ada.desk.History();
    ASSERT_EQ(history.size(), 4U);
    ASSERT_TRUE(ada.desk.window.Activate());
    ada.desk.WaitUntilAtRest();
    ada.desk.Choose("F", "n");
    for (Player* player : {&ada, &bob}) {
        EXPECT_TRUE(WaitUntil([&] { return player->folder.Read("lastgame.log") == AsLog(history); }))
            << player->folder.Read("lastgame.log");
        EXPECT_TRUE(WaitUntil([&] { return player->desk.History().empty(); }));
    }
}

TEST_F(Network, GoesOnAtOneScreenWhenTheOtherPlayerCloses) {
    ASSERT_NO_FATAL_FAILURE(BeginGame());
    ASSERT_NO_FATAL_FAILURE(PlaySteps(2));
    EXPECT_EQ(bob.desk.Close(), 0);
    EXPECT_TRUE(ada.client.TitleBecomes("Internet Tarveth (Ada vs. <nobody>)"));
    EXPECT_TRUE(ada.client.UsersBecome({"Ada"}));
    ASSERT_TRUE(ada.Awaits("Blue", "Pick piece"));
    ada.desk.Move("6C", "5B"); // takes an Officer
    ASSERT_TRUE(ada.Awaits("Blue", "Return piece"));
    ada.desk.ClickSquare("6B");
    ASSERT_TRUE(ada.Awaits("Red", "Pick piece"));
    ada.desk.Move("5C", "5D");
    ASSERT_TRUE(ada.Awaits("Red", "Return piece"));
}

// The third step takes an Officer, for which Blue has a Pawn to return.
TEST_F(Network, LeavesTheReturnToTheOneWhoStays) {
    ASSERT_NO_FATAL_FAILURE(BeginGame());
    ASSERT_NO_FATAL_FAILURE(PlaySteps(3));
    ASSERT_TRUE(ada.Awaits("Blue", "Return piece"));
    ASSERT_TRUE(bob.Awaits("Blue", "Return piece"));
    kill(ada.desk.program.Pid(), SIGKILL);
    EXPECT_TRUE(bob.client.TitleBecomes("Internet Tarveth (Bob vs. <nobody>)"));
    bob.desk.ClickSquare("6B");
    EXPECT_TRUE(bob.Awaits("Red", "Pick piece"));
}

TEST_F(Network, LeavesBothABoardToPlayOnWhenTheServerGoes) {
    ASSERT_NO_FATAL_FAILURE(BeginGame());
    ASSERT_NO_FATAL_FAILURE(PlaySteps(1));
    ASSERT_TRUE(bob.Awaits("Red", "Pick piece"));
    lobby.Signal(SIGKILL);
    for (Player* player : {&ada, &bob}) {
        EXPECT_TRUE(player->client.window.WaitUntilGone());
        EXPECT_TRUE(player->desk.TextBecomes(
            "lblMessage", "The connection to the server is closed; the game goes on at this screen."));
        player->desk.Move(game.steps[1].substr(5, 2), game.steps[1].substr(8, 2));
        EXPECT_TRUE(player->Awaits("Blue", "Pick piece"));
    }
}

} // namespace
} // namespace tarveth::harness
