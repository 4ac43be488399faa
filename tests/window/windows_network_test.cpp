// A game between the program of this system and the Windows program, through a lobby.

#include "tests/window/ClientDesk.h"
#include "tests/window/RecordedGame.h"
#include "tests/window/WineDesk.h"

#include <gtest/gtest.h>
#include <thread>

namespace tarveth::harness {
namespace {

// Beside the Windows program's window, which is in the upper left corner, and with a board of the same size.
std::string OwnIni() {
    return std::string("[Options]\r\nAnimateMoves=0\r\nAutoSaveLog=-1\r\nNickname=Ada\r\n"
                       "[Position]\r\nX=12000\r\nY=0\r\nW=11700\r\nH=12150\r\n"
                       "[ClientPosition]\r\nL=12000\r\nT=12450\r\nW=11700\r\nH=5200\r\n") +
           kBoardColours + kPlainBoard;
}

std::string TheirSections() {
    return std::string("[ClientPosition]\r\nL=0\r\nT=11850\r\nW=11700\r\nH=5800\r\n") + kPlainBoard;
}

void Connect(WineDesk& desk, const std::string& address) {
    desk.Choose("f", "i");
    const Window question = desk.program.WaitForWindow("Enter Server IP Address");
    desk.screen.Key("Ctrl+A");
    desk.screen.Type(address);
    desk.screen.Key("Return");
    ASSERT_TRUE(question.WaitUntilGone());
}

class BetweenSystems : public testing::Test {
protected:
    // Ada invites, and so plays Blue.
    void Begin() {
        ASSERT_NO_FATAL_FAILURE(Connect(bob, lobby.Address()));
        ASSERT_TRUE(client.UsersBecome({"Ada", "Bob"}));
        client.Select("Bob");
        client.Press("btnInvite");
        const Window question = bob.program.WaitForWindow("Join Game?");
        std::this_thread::sleep_for(Milliseconds(600)); // so long it takes no key
        bob.screen.Key("Alt+y");
        ASSERT_TRUE(question.WaitUntilGone());
        ASSERT_TRUE(ada.TextBecomes("lblMessage", "Board sent, commence play."));
        ASSERT_TRUE(BoardsAgree());
    }

    // Once this system's program is at rest, and the other has been told.
    bool BoardsAgree() {
        const Picture adas = ada.Board();
        const bool agree = WaitUntil([&] { return bob.Board() == adas; });
        if (!agree) {
            bob.KeepShot("windows-network-disagrees");
        }
        return agree;
    }

    // Answers which piece comes back; the Officer has the keyboard.
    void Choose(bool isAdas, bool officer) {
        Program& program = isAdas ? ada.program : bob.program;
        const Window question = program.WaitForWindow("Return");
        if (!officer) {
            bob.screen.Key("Tab");
        }
        bob.screen.Key("space");
        ASSERT_TRUE(question.WaitUntilGone());
    }

    // A step of the one or the other side, once both have the one before.
    void PlayStep(const std::string& step) {
        const bool isAdas = step.at(step.starts_with("  ") ? 2 : 0) == 'B';
        ASSERT_TRUE(ada.TextBecomes("lblCurPlayer", isAdas ? "Blue" : "Red"));
        ASSERT_TRUE(ada.PromptBecomes(PromptBefore(step)));
        ASSERT_TRUE(BoardsAgree());
        const std::string from = step.starts_with("  ") ? step.substr(6) : step.substr(5, 2);
        if (isAdas) {
            ada.ClickSquare(from);
        } else {
            ASSERT_TRUE(bob.Click(from));
        }
        if (step.starts_with("  ")) {
            return;
        }
        ASSERT_TRUE(ada.PromptBecomes("Place piece"));
        ASSERT_TRUE(BoardsAgree());
        if (isAdas) {
            ada.ClickSquare(step.substr(8, 2));
        } else {
            ASSERT_TRUE(bob.Click(step.substr(8, 2)));
        }
    }

    RecordedGame game{TARVETH_SOURCE_DIR "/tests/data/imperial.moves"};
    Wine wine;
    Lobby lobby;
    GameFolder adasFolder{OwnIni()};
    GameDesk ada{adasFolder};
    ClientDesk client{ada, lobby.Address()};
    WineFolder bobsFolder{"Nickname=Bob\r\n", TheirSections()};
    WineDesk bob{bobsFolder};
};

TEST_F(BetweenSystems, AWholeGameIsTheSameOnBothBoardsAndInBothLogs) {
    ASSERT_NO_FATAL_FAILURE(Begin());
    for (std::size_t i = 0; i < game.steps.size(); ++i) {
        const std::string& step = game.steps[i];
        if (step.size() == 1) {
            ASSERT_NO_FATAL_FAILURE(Choose(game.steps[i + 1][2] == 'B', step == "O"));
        } else {
            ASSERT_NO_FATAL_FAILURE(PlayStep(step)) << step;
        }
    }
    EXPECT_TRUE(ada.PromptBecomes("Game Over"));
    EXPECT_TRUE(BoardsAgree());
    EXPECT_TRUE(client.Hears("Bob: *** Bob (playing Red) has defeated Ada! ***"));
    bob.KeepShot("windows-network");

    ASSERT_TRUE(ada.window.Activate());
    ada.WaitUntilAtRest();
    ada.Choose("F", "n");
    EXPECT_TRUE(WaitUntil([&] { return bobsFolder.Read("lastgame.log") == AsLog(game.History()); }))
        << bobsFolder.Read("lastgame.log");
    EXPECT_EQ(adasFolder.Read("lastgame.log"), bobsFolder.Read("lastgame.log"));
}

} // namespace
} // namespace tarveth::harness
