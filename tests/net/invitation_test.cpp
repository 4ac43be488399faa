// Invitations to a game and their answers: what is asked, sent and told, with every byte.
#include "engine/rules/positiontext.h"
#include "tests/net/Delivered.h"

namespace tarveth::test {
namespace {

class Invitation : public Delivered {};
INSTANTIATE_TEST_SUITE_P(Server, Invitation, kDeliveries, DeliveryName);

void Select(TestClient& c, int index) {
    c.Receive("\251addnick(Ann,0)\251addnick(Bob,0)\251addnick(Cid,1)\251addnick(ANN,0)");
    c.client.SelectUser(index);
}

// A move in the game that is played at this screen.
void MovePawn(TestClient& c) {
    for (const char* square : {"4E", "4D"}) {
        c.main.DepositSquare(SquareOf(square));
        c.RunPasses();
    }
    ASSERT_EQ(c.game.lstHistory.size(), 1U);
}

std::string InviteSelected(TestClient& c) {
    c.client.Invite();
    return c.Sent();
}

TEST_P(Invitation, IsSentToTheSelectedUser) {
    TestClient c(GetParam());
    Select(c, 1);
    EXPECT_EQ(InviteSelected(c), "\251invite(Bob,Ann)");
    EXPECT_EQ(c.client.GameLinkState(), kLinkInviting);
    EXPECT_EQ(c.Lines(), Strings{"notice|You have invited Bob."});
    EXPECT_TRUE(c.window.inviting);
    EXPECT_EQ(c.window.focused, 1);
    EXPECT_FALSE(c.net.InGame);
}

TEST_P(Invitation, GoesToTheNicknameWithoutItsSign) {
    TestClient c(GetParam());
    Select(c, 2);
    EXPECT_EQ(InviteSelected(c), "\251invite(Cid,Ann)");
}

TEST_P(Invitation, NeedsASelectedUser) {
    TestClient c(GetParam());
    Select(c, UserList::kNobody);
    EXPECT_EQ(InviteSelected(c), "");
    EXPECT_EQ(c.window.boxes, Strings{"|You must select a user to invite into a game."});
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
    EXPECT_EQ(c.window.focused, 1);
}

TEST_P(Invitation, ToOneselfIsRefusedWhateverTheCase) {
    for (const int index : {0, 3}) {
        TestClient c(GetParam());
        Select(c, index);
        EXPECT_EQ(InviteSelected(c), "");
        EXPECT_EQ(c.window.boxes, Strings{"|You can't invite yourself to a game."});
        EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
    }
}

TEST_P(Invitation, ThatIsAcceptedBringsAGameAsBlueAndTheBoardIsSent) {
    TestClient c(GetParam());
    Select(c, 1);
    InviteSelected(c);
    c.Lines();
    const std::string sent = c.Receive("\251accept(Ann,Bob,Bob has accepted your invitation.)");
    EXPECT_EQ(c.client.GameLinkState(), kLinkInGame);
    EXPECT_EQ(c.client.OpponentNick(), "Bob");
    EXPECT_EQ(c.window.caption, "Internet Tarveth (Ann vs. Bob)");
    EXPECT_EQ(c.Lines(), Strings{"notice|Bob has accepted your invitation."});
    EXPECT_TRUE(c.net.InGame);
    EXPECT_TRUE(c.window.inGame);
    EXPECT_TRUE(c.net.PlayingBlue);
    EXPECT_EQ(c.port.localSide, Blue);
    EXPECT_TRUE(sent.starts_with("\251play(Bob,C(board))\251play(Bob,P(")) << sent;
    EXPECT_TRUE(sent.ends_with("\251play(Bob,T(1))\251play(Bob,C(play))")) << sent;
}

TEST_P(Invitation, ThatIsRefusedLeavesUsIdle) {
    TestClient c(GetParam());
    Select(c, 1);
    InviteSelected(c);
    c.Lines();
    EXPECT_EQ(c.Receive("\251refuse(Ann, Bob has turned down your invitation.)"), "");
    EXPECT_EQ(c.Lines(), Strings{"notice|Bob has turned down your invitation."});
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
}

TEST_P(Invitation, IsAskedAboutAndAccepted) {
    TestClient c(GetParam());
    c.window.answers = {true};
    EXPECT_EQ(c.Receive("\251invite(Ann,Bob)"),
              "\251accept(Bob,Ann,Ann has accepted your invitation. Play may begin.)");
    EXPECT_EQ(c.window.questions, Strings{"Join Game?|Bob is inviting you to a game."});
    EXPECT_EQ(c.Lines(), Strings{"notice|You have accepted the invitation from Bob"});
    EXPECT_EQ(c.client.GameLinkState(), kLinkInGame);
    EXPECT_EQ(c.client.OpponentNick(), "Bob");
    EXPECT_EQ(c.window.caption, "Internet Tarveth (Ann vs. Bob)");
    EXPECT_TRUE(c.net.InGame);
    EXPECT_FALSE(c.net.PlayingBlue);
    EXPECT_EQ(c.port.localSide, Red);
}

TEST_P(Invitation, AcceptedSendsNoBoardAndWaitsForOne) {
    TestClient c(GetParam());
    c.window.answers = {true};
    EXPECT_EQ(c.Receive("\251invite(Ann,Bob)").find("play("), std::string::npos);
    EXPECT_EQ(c.game.GameState, kGetBoard);
}

TEST_P(Invitation, AcceptedBeginsANewGameWhereTheInviterPlaysWithoutSendingABoard) {
    TestClient c(GetParam());
    MovePawn(c);
    const int before = c.port.newRecords;
    c.window.answers = {true};
    c.Receive("\251invite(Ann,Bob)");
    EXPECT_EQ(c.Receive("\251play(Ann,X(good luck))\251play(Ann,M(4, 5))"), "");
    EXPECT_EQ(c.port.newRecords, before + 1);
    EXPECT_EQ(c.game.Turn, Blue);
    EXPECT_EQ(c.game.GameState, kPlacePiece);
    EXPECT_TRUE(c.net.InGame);
    EXPECT_EQ(c.game.lstHistory, Strings{});
}

TEST_P(Invitation, AcceptedTooLateLeavesTheLocalGameUntouched) {
    for (const char* end : {"\251end(Ann,Bob)", "\251removenick(Bob)"}) {
        TestClient c(GetParam());
        MovePawn(c);
        const Game before = c.game;
        const int records = c.port.newRecords;
        c.window.answers = {true};
        c.Receive("\251invite(Ann,Bob)");
        EXPECT_EQ(c.client.GameLinkState(), kLinkInGame);
        c.Receive(end);
        EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
        EXPECT_EQ(c.game, before);
        EXPECT_EQ(c.port.newRecords, records);
        EXPECT_EQ(c.port.receivedRecords, 0);
    }
}

TEST_P(Invitation, ThatIsWithdrawnClosesItsQuestion) {
    TestClient c(GetParam());
    c.window.leavesJoinQuestionOpen = true;
    c.Receive("\251invite(Ann,Bob)");
    EXPECT_EQ(c.window.joinQuestion, "Bob is inviting you to a game.");
    EXPECT_EQ(c.Receive("\251end(Ann,Bob)"), "");
    EXPECT_EQ(c.window.joinQuestion, "");
    EXPECT_EQ(c.Lines(), Strings{"notice|Bob has withdrawn the invitation."});
    c.client.AnswerInvitation(true);
    EXPECT_EQ(c.Sent(), "");
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
}

TEST_P(Invitation, OfSomebodyWhoLeavesClosesItsQuestion) {
    TestClient c(GetParam());
    c.window.leavesJoinQuestionOpen = true;
    c.Receive("\251invite(Ann,Bob)\251removenick(Cid)\251end(Ann,Cid)");
    EXPECT_NE(c.window.joinQuestion, "");
    EXPECT_EQ(c.Receive("\251removenick(Bob)"), "");
    EXPECT_EQ(c.window.joinQuestion, "");
    EXPECT_EQ(c.Lines(), Strings{"notice|Bob has left; the invitation is gone."});
}

TEST_P(Invitation, FollowsItsInviterToAnotherNickname) {
    TestClient c(GetParam());
    c.window.leavesJoinQuestionOpen = true;
    c.Receive("\251addnick(Bob,0)\251invite(Ann,Bob)\251changenick(Bob,Rob,0)");
    EXPECT_EQ(c.window.joinQuestion, "Rob is inviting you to a game.");
    c.client.AnswerInvitation(true);
    EXPECT_EQ(c.Sent(), "\251accept(Rob,Ann,Ann has accepted your invitation. Play may begin.)");
    EXPECT_EQ(c.client.OpponentNick(), "Rob");
}

TEST_P(Invitation, OfOnePersonWaitsOnce) {
    TestClient c(GetParam());
    c.window.leavesJoinQuestionOpen = true;
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(c.Receive("\251invite(Ann,Bob)"), "");
    EXPECT_EQ(c.window.questions, Strings{"Join Game?|Bob is inviting you to a game."});
    c.client.AnswerInvitation(false);
    EXPECT_EQ(c.Sent(), "\251refuse(Bob, Ann has turned down your invitation.)");
    EXPECT_EQ(c.window.joinQuestion, "");
}

TEST_P(Invitation, OfASecondPersonIsAskedAboutAfterTheFirst) {
    TestClient c(GetParam());
    c.window.leavesJoinQuestionOpen = true;
    c.Receive("\251invite(Ann,Bob)\251invite(Ann,Cid)\251invite(Ann,Dan)\251removenick(Cid)");
    EXPECT_EQ(c.window.joinQuestion, "Bob is inviting you to a game.");
    c.client.AnswerInvitation(false);
    EXPECT_EQ(c.window.joinQuestion, "Dan is inviting you to a game.");
    c.client.AnswerInvitation(true);
    EXPECT_EQ(c.window.joinQuestion, "");
    EXPECT_EQ(c.client.OpponentNick(), "Dan");
}

TEST_P(Invitation, ThatWaitsWhenAGameBeginsIsRefused) {
    TestClient c(GetParam());
    c.window.leavesJoinQuestionOpen = true;
    c.Receive("\251invite(Ann,Bob)\251invite(Ann,Cid)");
    c.client.AnswerInvitation(true);
    EXPECT_TRUE(c.Sent().ends_with("\251refuse(Cid, [Auto] Ann is in a game already.)"));
    EXPECT_EQ(c.window.joinQuestion, "");
}

// The answer that waits for its turn was given to another question.
TEST_P(Invitation, IsNotAnsweredByTheAnswerToTheOneBefore) {
    TestClient c(GetParam());
    c.window.leavesJoinQuestionOpen = true;
    c.Receive("\251invite(Ann,Bob)");
    c.main.RunCommand([&] {
        c.socket.TellData("\251end(Ann,Bob)\251invite(Ann,Cid)");
        c.client.AnswerInvitation(true);
    });
    c.RunPasses();
    EXPECT_EQ(c.Sent(), "");
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
    EXPECT_EQ(c.window.joinQuestion, "Cid is inviting you to a game.");
}

TEST_P(Invitation, IsNotSentAgainWhileItHasNoAnswer) {
    TestClient c(GetParam());
    Select(c, 1);
    InviteSelected(c);
    c.Lines();
    c.client.SelectUser(2);
    EXPECT_EQ(InviteSelected(c), "");
    EXPECT_EQ(c.Lines(), Strings{"notice|You have invited Bob already, who has not answered yet. \"Break "
                                 "Invite\" withdraws the invitation."});
    EXPECT_EQ(c.client.GameLinkState(), kLinkInviting);
}

TEST_P(Invitation, IsWithdrawnByBreak) {
    TestClient c(GetParam());
    Select(c, 1);
    InviteSelected(c);
    c.Lines();
    c.client.Break();
    EXPECT_EQ(c.Sent(), "\251end(Bob,Ann)");
    EXPECT_EQ(c.Lines(), Strings{"notice|You have withdrawn your invitation to Bob."});
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
    EXPECT_FALSE(c.window.inviting);
    const Game before = c.game;
    EXPECT_EQ(c.Receive("\251accept(Ann,Bob,Bob has accepted your invitation.)"), "\251end(Bob,Ann)");
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
    EXPECT_EQ(c.game, before);
}

TEST_P(Invitation, IsWithdrawnByLeaving) {
    TestClient c(GetParam());
    Select(c, 1);
    InviteSelected(c);
    c.client.Close();
    EXPECT_EQ(c.Sent(), "\251end(Bob,Ann)");
}

TEST_P(Invitation, IsWithdrawnWhereAnotherPersonsIsAccepted) {
    TestClient c(GetParam());
    c.window.leavesJoinQuestionOpen = true;
    c.Receive("\251invite(Ann,Cid)");
    Select(c, 1);
    InviteSelected(c);
    c.client.AnswerInvitation(true);
    EXPECT_TRUE(c.Sent().starts_with("\251end(Bob,Ann)\251accept(Cid,Ann,"));
    EXPECT_EQ(c.client.OpponentNick(), "Cid");
}

TEST_P(Invitation, ToSomebodyWhoLeavesOrEndsItIsOver) {
    for (const char* end : {"\251removenick(Bob)", "\251end(Ann,Bob)"}) {
        TestClient c(GetParam());
        Select(c, 1);
        InviteSelected(c);
        c.Receive(end);
        EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
    }
}

TEST_P(Invitation, FollowsTheInvitedPersonToAnotherNickname) {
    TestClient c(GetParam());
    Select(c, 1);
    InviteSelected(c);
    c.Receive("\251changenick(Bob,Rob,0)\251changenick(,Eve,0)");
    c.client.Break();
    EXPECT_EQ(c.Sent(), "\251end(Rob,Ann)");
}

TEST_P(Invitation, ToSomebodyElseThanWasPickedIsAskedAboutFirst) {
    for (const bool yes : {false, true}) {
        TestClient c(GetParam());
        c.window.answers = {yes};
        c.Receive("\251addnick(Xena,0)\251addnick(P2,0)\251addnick(P3,0)");
        c.client.SelectUser(0);
        c.Receive("\251changenick(Xena,Xena,1)");
        EXPECT_EQ(InviteSelected(c), yes ? "\251invite(P2,Ann)" : "");
        EXPECT_EQ(c.window.questions,
                  Strings{"Invite?|You picked Xena, but the list has changed: invite P2?"});
        c.client.SelectUser(1);
        if (!yes) {
            EXPECT_EQ(InviteSelected(c), "\251invite(P3,Ann)");
        }
    }
}

TEST_P(Invitation, ThatIsAcceptedWhenTheGameIsOverBeginsANewOne) {
    TestClient c(GetParam());
    SetPosition(c.game, "turn B | BM 4D | RM 4E | jail RM RM");
    for (const char* square : {"4D", "4E"}) {
        c.main.DepositSquare(SquareOf(square));
        c.RunPasses();
    }
    ASSERT_EQ(c.game.GameState, kGameOver);
    Select(c, 1);
    InviteSelected(c);
    const std::string sent = c.Receive("\251accept(Ann,Bob,yes)");
    EXPECT_TRUE(sent.starts_with("\251play(Bob,C(board))\251play(Bob,P(")) << sent;
    EXPECT_EQ(sent.find("C(board)"), sent.rfind("C(board)"));
    EXPECT_EQ(sent.find("***"), std::string::npos);
    EXPECT_EQ(c.game.GameState, kPickPiece);
    EXPECT_EQ(c.game.PieceCount(), kPieces);
}

TEST_P(Invitation, IsAskedAboutAndRefused) {
    TestClient c(GetParam());
    EXPECT_EQ(c.Receive("\251invite(Ann,Bob)"), "\251refuse(Bob, Ann has turned down your invitation.)");
    EXPECT_EQ(c.Lines(), Strings{"notice|You have refused the invitation from Bob"});
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
    EXPECT_FALSE(c.net.InGame);
}

TEST_P(Invitation, WhileOursIsUnansweredIsRefusedUnasked) {
    TestClient c(GetParam());
    Select(c, 1);
    InviteSelected(c);
    c.Lines();
    EXPECT_EQ(c.Receive("\251invite(Ann,Cid)"), "\251refuse(Cid, [Auto] Ann is negotiating a game.)");
    EXPECT_EQ(c.Lines(), Strings{"notice|Cid tried to invite you to a game."});
    EXPECT_EQ(c.window.questions, Strings{});
    EXPECT_EQ(c.client.GameLinkState(), kLinkInviting);
}

TEST_P(Invitation, InAGameIsRefusedUnasked) {
    TestClient c(GetParam());
    c.StartGame();
    EXPECT_EQ(c.Receive("\251invite(Ann,Cid)\251invite(Ann,Dan)"),
              "\251refuse(Cid, [Auto] Ann is in a game already.)"
              "\251refuse(Dan, [Auto] Ann is in a game already.)");
    EXPECT_EQ(c.Lines(), (Strings{"notice|Cid tried to invite you to a game.",
                                  "notice|Dan tried to invite you to a game."}));
    EXPECT_EQ(c.window.questions, Strings{});
    EXPECT_EQ(c.client.GameLinkState(), kLinkInGame);
    EXPECT_EQ(c.client.OpponentNick(), "Bob");
}

TEST_P(Invitation, OfNobodyIsIgnored) {
    TestClient c(GetParam());
    EXPECT_EQ(c.Receive("\251invite(Ann)\251invite(Ann, )\251accept(Ann,)"), "");
    EXPECT_EQ(c.window.questions, Strings{});
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
}

TEST_P(Invitation, FromSomeoneWithAnOddNameIsAnsweredInAWholeMessage) {
    TestClient c(GetParam());
    EXPECT_EQ(c.Receive("\251invite(Ann,(Bob,x))"), "\251refuse([Bob, Ann has turned down your invitation.)");
}

TEST_P(Invitation, CannotBeSentFromWithinAGame) {
    TestClient c(GetParam());
    c.StartGame();
    Select(c, 2);
    EXPECT_EQ(InviteSelected(c), "");
    EXPECT_EQ(c.client.GameLinkState(), kLinkInGame);
}

} // namespace
} // namespace tarveth::test
