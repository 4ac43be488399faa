// Opening and closing the client window, and what arrives while something else is going on.
#include "tests/net/TestClient.h"

#include "engine/rules/positiontext.h"

#include <gtest/gtest.h>

namespace tarveth::test {
namespace {

TEST(ClientWindow, OpensWithNobodyInIt) {
    TestClient c;
    EXPECT_EQ(c.window.caption, "Internet Tarveth (Ann vs. <nobody>)");
    EXPECT_TRUE(c.client.IsOpen());
    EXPECT_FALSE(c.window.inGame);
    EXPECT_FALSE(c.window.privateMode);
    EXPECT_TRUE(c.net.NetConnected);
    EXPECT_FALSE(c.net.InGame);
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
    EXPECT_EQ(c.socket.calls, (Strings{"CreateSocket", "Connect lobby.example:9090"}));
}

TEST(ClientWindow, BeginsAfreshEveryTime) {
    TestClient c;
    c.Receive("\251update(1.0.37)\251addnick(Bob,0)\251sys(half");
    c.client.Close();
    c.client.Open(c.window, c.window, c.socket);
    EXPECT_EQ(c.client.Users().Entries(), Strings{});
    EXPECT_EQ(c.Receive("\251update(1.0.37)").find("\251clientver("), 0U);
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST(ClientWindow, WithoutAServerStaysOpenUnconnected) {
    TestClient c;
    c.client.Close();
    c.window.server = "";
    c.client.Open(c.window, c.window, c.socket);
    EXPECT_TRUE(c.client.IsOpen());
    EXPECT_FALSE(c.net.NetConnected);
}

TEST(ClientWindow, TheQuestionForTheServerWaitsForItsTurn) {
    TestClient c;
    c.client.Close();
    const std::size_t calls = c.socket.calls.size();
    c.main.RunCommand([&] {
        c.client.Open(c.window, c.window, c.socket);
        EXPECT_EQ(c.socket.calls.size(), calls);
        EXPECT_TRUE(c.client.IsOpen());
    });
    EXPECT_EQ(c.socket.calls.size(), calls + 2);
}

TEST(ClientWindow, ClosedBeforeTheQuestionForTheServerItIsNotAsked) {
    TestClient c;
    c.client.Close();
    const std::size_t calls = c.socket.calls.size();
    c.main.RunCommand([&] {
        c.client.Open(c.window, c.window, c.socket);
        c.client.Close();
    });
    EXPECT_EQ(c.socket.calls.size(), calls);
}

TEST(ClientWindow, ClosedByTheUserWithoutAGameSaysNothing) {
    TestClient c;
    c.port.message = "as it was";
    c.client.Close();
    EXPECT_FALSE(c.client.IsOpen());
    EXPECT_FALSE(c.net.NetConnected);
    EXPECT_EQ(c.port.message, "as it was");
}

TEST(ClientWindow, ClosedInAGameEndsTheLinkAndSaysSo) {
    TestClient c;
    c.window.answers = {true};
    c.Receive("\251invite(Ann,Bob)");
    c.client.Close();
    EXPECT_EQ(c.port.message, "The connection to the server is closed; the game goes on at this screen.");
    EXPECT_EQ(c.port.boxes, Strings{});
    EXPECT_FALSE(c.net.InGame);
    EXPECT_FALSE(c.window.inGame);
    EXPECT_FALSE(c.net.NetConnected);
    EXPECT_TRUE(c.net.PlayingBlue);
    EXPECT_EQ(c.port.localSide, NoSide);
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
}

TEST(ClientWindow, ABrokenConnectionClosesItAndSaysSo) {
    TestClient c;
    c.socket.TellClose();
    EXPECT_EQ(c.window.unloads, 1);
    c.client.Close();
    EXPECT_EQ(c.port.message, "The connection to the server is closed.");
}

TEST(ClientWindow, ClosedItSendsAndShowsNothing) {
    TestClient c;
    c.StartGame();
    c.client.Close();
    c.Sent();
    c.Lines();
    c.client.EnterLine("hello");
    c.client.EnterLine("/p hello");
    c.client.SendGameMessage("M(1, 1)");
    c.client.SendBoard();
    c.client.AnnounceVictory(true);
    c.client.ShowNotice("nobody");
    c.client.Invite();
    c.client.Break();
    c.client.ChangeNickname();
    c.client.Swap();
    c.client.DispatchMessages("\251update(1.0.37)\251sys(a)b");
    EXPECT_EQ(c.Sent(), "");
    EXPECT_EQ(c.Lines(), Strings{});
    EXPECT_EQ(c.window.questions, Strings{});
}

TEST(ClientWindow, HearsNothingMoreOnceItIsToClose) {
    TestClient c;
    c.Receive("\251oldver()");
    c.Receive("\251sys(a)\251update(1.0.37)text\r\n");
    c.socket.TellClose();
    EXPECT_EQ(c.Lines(), Strings{});
    EXPECT_EQ(c.window.unloads, 1);
}

TEST(ClientWindow, HearsNothingOfTheSocketOfTheOneBefore) {
    TestClient c;
    const FakeSocket before = c.socket;
    c.client.Close();
    c.client.Open(c.window, c.window, c.socket);
    c.socket.TellData("\251sys(new)");
    before.DataArrivalEvent();
    before.CloseEvent();
    EXPECT_EQ(c.Lines(), Strings{"notice|new"});
    EXPECT_EQ(c.window.unloads, 0);
}

TEST(Meanwhile, ChatCanBeReadWhileTheQuestionToJoinIsOpen) {
    TestClient c;
    c.window.leavesJoinQuestionOpen = true;
    c.Receive("\251invite(Ann,Bob)\251sys(sooner)");
    c.Receive("\251sys(later)Bob: hello\r\n");
    EXPECT_EQ(c.Lines(), (Strings{"notice|sooner", "notice|later", "others|Bob: hello"}));
    EXPECT_NE(c.window.joinQuestion, "");
}

TEST(Meanwhile, AnAlertHoldsUpWhatFollows) {
    TestClient c;
    c.window.onQuestion = [&] {
        c.socket.TellData("\251addnick(Bob,0)");
        EXPECT_EQ(c.client.Users().Entries(), Strings{});
    };
    c.Receive("\251alert(Look)");
    EXPECT_EQ(c.client.Users().Entries(), Strings{"Bob"});
}

TEST(Meanwhile, TheConnectionClosingDuringABoxClosesTheWindowAfterIt) {
    TestClient c;
    c.window.onQuestion = [&] {
        c.socket.TellData("\251sys(last words)");
        c.socket.TellClose();
        EXPECT_EQ(c.window.unloads, 0);
    };
    c.Receive("\251alert(Look)");
    EXPECT_EQ(c.window.unloads, 1);
    EXPECT_EQ(c.Lines(), Strings{"notice|last words"});
}

TEST(Meanwhile, TheQuestionToJoinClosesWithTheWindow) {
    TestClient c;
    c.window.leavesJoinQuestionOpen = true;
    c.Receive("\251invite(Ann,Bob)");
    c.client.Close();
    EXPECT_EQ(c.window.joinQuestion, "");
}

TEST(Meanwhile, WhatArrivesDuringAQuestionOfTheUsersOwnWaits) {
    TestClient c;
    c.window.text = "Anna";
    c.window.onQuestion = [&] {
        c.socket.TellData("\251sys(hello)");
        EXPECT_EQ(c.window.lines, Strings{});
    };
    c.client.ChangeNickname();
    EXPECT_EQ(c.Lines(), Strings{"notice|hello"});
}

TEST(Meanwhile, WhatArrivesWhileAPieceIsMovingWaitsForItsEnd) {
    TestClient c;
    c.StartGame();
    SetPosition(c.game, "turn B | BM 4D | BP 1A | RM 8H | RP 7H");
    c.port.onAnimate = [&] {
        c.socket.TellData("\251play(Ann,C(board))\251sys(hello)");
        EXPECT_EQ(c.window.lines, Strings{});
        EXPECT_NE(c.game.GameState, kGetBoard);
    };
    c.settings.AnimateMoves = -1;
    for (const char* square : {"4D", "4E"}) {
        c.main.DepositSquare(SquareOf(square));
        c.RunPasses();
    }
    EXPECT_EQ(c.port.animations, 1);
    EXPECT_EQ(c.port.finishedAnimations, 0);
    EXPECT_EQ(c.Lines(), Strings{"notice|hello"});
    EXPECT_EQ(c.game.GameState, kGetBoard);
}

TEST(Meanwhile, AnEventThatWaitsForAWindowThatHasGoneIsDropped) {
    TestClient c;
    c.main.RunCommand([&] {
        c.socket.TellData("\251sys(hello)");
        c.client.Close();
        c.client.Open(c.window, c.window, c.socket);
    });
    EXPECT_EQ(c.Lines(), Strings{});
}

TEST(Meanwhile, TheWindowsCommandsWaitForTheirTurn) {
    TestClient c;
    c.StartGame();
    c.main.RunCommand([&] {
        c.client.Break();
        EXPECT_EQ(c.client.GameLinkState(), kLinkInGame);
    });
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
}

} // namespace
} // namespace tarveth::test
