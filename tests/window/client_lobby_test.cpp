// The client window of the real program in a lobby: who is there, invitations, both transcripts.

#include "tests/window/ClientDesk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace tarveth::harness {
namespace {

constexpr const char* kIni = "[Options]\r\nAnimateMoves=0\r\nNickname=Ada\r\n";
constexpr const char* kNobody = "Internet Tarveth (Ada vs. <nobody>)";

// Colours of the transcripts that no theme has: others 0x112233, mine 0x445566, opponent 0x778899, notices
// 0xAABBCC. In tarveth.ini red is the low byte.
constexpr const char* kColours = "[ClientOptions]\r\nTranscriptFontSize=24\r\n"
                                 "TranscriptColor=3351057\r\nTranscriptMyColor=6706500\r\n"
                                 "TranscriptOppColor=10061943\r\nTranscriptSysColor=13417386\r\n";

bool Holds(const Picture& picture, std::uint32_t colour) {
    return std::find(picture.pixels.begin(), picture.pixels.end(), colour) != picture.pixels.end();
}

// A client window in a lobby.
class InLobby : public testing::Test {
protected:
    explicit InLobby(const std::string& ini = kIni) : folder(ini) {}

    void SetUp() override { ASSERT_TRUE(client.UsersBecome({"Ada"})); }

    std::vector<std::string> IniLines() const {
        std::vector<std::string> lines(1);
        for (const char letter : folder.Read("tarveth.ini")) {
            if (letter == '\n') {
                lines.emplace_back();
            } else if (letter != '\r') {
                lines.back() += letter;
            }
        }
        return lines;
    }

    Lobby lobby;
    GameFolder folder;
    GameDesk desk{folder};
    ClientDesk client{desk, lobby.Address()};
};

TEST_F(InLobby, ShowsWhoComesAndGoes) {
    LobbyClient bob(lobby, "Bob");
    LobbyClient cafe(lobby, "Caf\xE9");
    EXPECT_TRUE(client.UsersBecome({"Ada", "Bob", "Caf\u00E9"}));
    bob.Say("\251nick(Rob)");
    EXPECT_TRUE(client.UsersBecome({"Ada", "Caf\u00E9", "Rob"}));
    LobbyClient dora(lobby, "Dora");
    StartGame(dora, "Dora", bob, "Rob");
    EXPECT_TRUE(client.UsersBecome({"Ada", "Caf\u00E9", "Dora\u00AE", "Rob\u00AE"}));
    dora.Close();
    EXPECT_TRUE(client.UsersBecome({"Ada", "Caf\u00E9", "Rob"}));
}

TEST_F(InLobby, KeepsTheSelectionOnItsPlaceInTheList) {
    LobbyClient bob(lobby, "Bob");
    LobbyClient cy(lobby, "Cy");
    ASSERT_TRUE(client.UsersBecome({"Ada", "Bob", "Cy"}));
    client.Select("Bob");
    bob.Say("\251nick(Rob)");
    ASSERT_TRUE(client.UsersBecome({"Ada", "Cy", "Rob"}));
    EXPECT_TRUE(WaitUntil([&] {
        const auto row = desk.reader.Find(WithRoleAndName("table cell", "Cy"));
        return row && row->Has("selected");
    }));
}

TEST_F(InLobby, RefusesToInviteOneself) {
    client.Select("Ada");
    client.Press("btnInvite");
    const Window box = client.Box("Tarveth", "You can't invite yourself to a game.");
    desk.screen.Key("Return");
    EXPECT_TRUE(box.WaitUntilGone());
}

TEST_F(InLobby, InvitesBySelectingAndByADoubleClick) {
    LobbyClient bob(lobby, "Bob");
    ASSERT_TRUE(client.UsersBecome({"Ada", "Bob"}));
    client.Select("Bob");
    client.Choose("A", "i");
    EXPECT_NE(bob.HearUntil("\251invite(Bob,Ada)"), "");
    bob.Say("\251refuse(Ada, Bob has turned down your invitation.)");
    ASSERT_TRUE(client.Hears("Bob: Bob has turned down your invitation."));
    desk.WaitUntilAtRest();
    const Point row = desk.reader.Find(WithRoleAndName("table cell", "Bob"))->extents.Centre();
    desk.screen.Click(row);
    desk.screen.Click(row);
    EXPECT_NE(bob.HearUntil("\251invite(Bob,Ada)"), "");
}

TEST_F(InLobby, WithdrawsAnInvitationByBreak) {
    LobbyClient bob(lobby, "Bob");
    ASSERT_TRUE(client.UsersBecome({"Ada", "Bob"}));
    client.Select("Bob");
    client.Press("btnInvite");
    ASSERT_TRUE(client.Hears("You have invited Bob."));
    client.Press("btnInvite");
    ASSERT_TRUE(
        client.Hears("You have invited Bob already, who has not answered yet. \"Break Invite\" withdraws "
                     "the invitation."));
    ASSERT_TRUE(client.Enabled("btnBreak"));
    client.Press("btnBreak");
    ASSERT_TRUE(client.Hears("You have withdrawn your invitation to Bob."));
    EXPECT_NE(bob.HearUntil("\251end(Bob,Ada)"), "");
    EXPECT_TRUE(WaitUntil([&] { return !client.Enabled("btnBreak"); }));
}

// Somebody is typing on and on when the invitation comes.
TEST_F(InLobby, TakesNoKeyForAnAnswerInTheFirstHalfSecond) {
    LobbyClient bob(lobby, "Bob");
    ASSERT_TRUE(client.UsersBecome({"Ada", "Bob"}));
    client.Press("txtTX");
    const auto start = std::chrono::steady_clock::now();
    bob.Say("\251invite(Ada,Bob)");
    EXPECT_TRUE(WaitUntil([&] {
        desk.screen.Key("Alt+y");
        return client.window.Title() == "Internet Tarveth (Ada vs. Bob)";
    }));
    EXPECT_GE(std::chrono::steady_clock::now() - start, Milliseconds(500));
}

TEST_F(InLobby, AnswersNoUnlessYesIsChosen) {
    LobbyClient bob(lobby, "Bob");
    bob.Say("\251invite(Ada,Bob)");
    Window box = client.Box("Join Game?", "Bob is inviting you to a game.");
    bob.Say("good evening\n");
    EXPECT_TRUE(client.Hears("Bob: good evening"));
    client.KeepShot("client-join-game");
    std::this_thread::sleep_for(Milliseconds(600));
    box.Activate();
    desk.screen.Key("Return");
    ASSERT_TRUE(box.WaitUntilGone());
    EXPECT_TRUE(client.Hears("You have refused the invitation from Bob"));
}

TEST_F(InLobby, ClosesTheQuestionToJoinWhenTheInvitationIsWithdrawn) {
    LobbyClient bob(lobby, "Bob");
    for (const bool leaves : {false, true}) {
        bob.Say("\251invite(Ada,Bob)");
        const Window box = client.Box("Join Game?", "Bob is inviting you to a game.");
        if (leaves) {
            bob.Close();
        } else {
            bob.Say("\251end(Ada,Bob)");
        }
        ASSERT_TRUE(box.WaitUntilGone());
        EXPECT_TRUE(client.Hears(leaves ? "Bob has left; the invitation is gone."
                                        : "Bob has withdrawn the invitation."));
    }
}

TEST_F(InLobby, AsksForANickname) {
    client.Press("btnNickname");
    Window question = client.Box("Nickname", "Enter your preferred nickname:");
    EXPECT_TRUE(desk.reader.Find([](const AccessibleNode& node) { return node.text == "Ada"; }));
    desk.screen.Key("Ctrl+A");
    desk.screen.Type("Countess");
    desk.screen.Key("Return");
    ASSERT_TRUE(question.WaitUntilGone());
    EXPECT_TRUE(client.Hears("nickname set to Countess"));
    EXPECT_TRUE(client.TitleBecomes("Internet Tarveth (Countess vs. <nobody>)"));
    EXPECT_TRUE(client.UsersBecome({"Countess"}));
    client.Choose("A", "n");
    question = client.Box("Nickname", "Enter your preferred nickname:");
    desk.screen.Type(" ");
    desk.screen.Key("Return");
    ASSERT_TRUE(question.WaitUntilGone());
    EXPECT_EQ(desk.Close(), 0);
    const std::vector<std::string> ini = IniLines();
    EXPECT_NE(std::find(ini.begin(), ini.end(), "Nickname=Countess"), ini.end());
}

TEST_F(InLobby, ShowsInPrivateWhatConcernsTheTwo) {
    LobbyClient bob(lobby, "Bob");
    LobbyClient cy(lobby, "Cy");
    bob.Say("\251invite(Ada,Bob)");
    client.Join("Bob");
    ASSERT_TRUE(client.TitleBecomes("Internet Tarveth (Ada vs. Bob)"));
    EXPECT_TRUE(WaitUntil([&] { return client.Enabled("btnBreak") && !client.Enabled("btnInvite"); }));
    cy.Say("good evening\n");
    bob.Say("\251play(Ada,X(good luck))");
    ASSERT_TRUE(client.Hears("Bob:[p] good luck"));
    client.Enter("hello all");
    client.Enter("/P and you");
    EXPECT_NE(bob.HearUntil("\251play(Bob,X(and you))"), "");
    ASSERT_TRUE(client.Hears("Ada: hello all"));
    ASSERT_TRUE(client.Hears("Ada:[p] and you"));
    EXPECT_TRUE(client.Hears("Cy: good evening"));
    EXPECT_EQ(client.PrivateTranscript().find("Cy:"), std::string::npos);
    for (const char* line : {"You have accepted the invitation from Bob\n", "Bob:[p] good luck\n",
                             "Ada: hello all\n", "Ada:[p] and you\n"}) {
        EXPECT_NE(client.PrivateTranscript().find(line), std::string::npos) << line;
    }
    client.Press("btnBreak");
    EXPECT_NE(bob.HearUntil("\251end(Bob,Ada)"), "");
    EXPECT_TRUE(client.TitleBecomes(kNobody));
}

TEST_F(InLobby, ClearsTheTranscriptsOneByOne) {
    client.Enter("one");
    ASSERT_TRUE(client.Hears("Ada: one"));
    client.Choose("A", "End"); // the last of the menu; these two have no access keys
    desk.screen.Key("Up");
    desk.screen.Key("Return");
    EXPECT_TRUE(desk.TextBecomes("txtRX(0)", ""));
    EXPECT_EQ(client.PrivateTranscript(), "Ada: one\n");
    client.Choose("A", "End");
    desk.screen.Key("Return");
    EXPECT_TRUE(desk.TextBecomes("txtRX(1)", ""));
}

TEST_F(InLobby, ClosesWhenTheServerEnds) {
    lobby.Signal(SIGKILL);
    EXPECT_TRUE(client.window.WaitUntilGone());
    EXPECT_TRUE(desk.window.Activate());
    EXPECT_TRUE(desk.TextBecomes("lblMessage", "The connection to the server is closed."));
    desk.Move("4E", "4D");
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    const ClientDesk again(desk);
}

class InColours : public InLobby {
protected:
    InColours() : InLobby(std::string(kIni) + kColours) {}

    Picture TranscriptNow() {
        desk.WaitUntilAtRest();
        return desk.screen.Capture(desk.Place("txtRX(0)"));
    }
};

TEST_F(InColours, EachLineIsInThatOfItsSpeaker) {
    LobbyClient cy(lobby, "Cy");
    cy.Say("WWW\n");
    ASSERT_TRUE(client.Hears("Cy: WWW"));
    EXPECT_TRUE(Holds(TranscriptNow(), 0x112233));
    EXPECT_FALSE(Holds(TranscriptNow(), 0x445566));
    client.Enter("WWW");
    ASSERT_TRUE(client.Hears("Ada: WWW"));
    EXPECT_TRUE(Holds(TranscriptNow(), 0x445566));
    EXPECT_FALSE(Holds(TranscriptNow(), 0xAABBCC));
    cy.Say("\251invite(Ada,Cy)");
    client.Join("Cy");
    ASSERT_TRUE(client.Hears("You have accepted the invitation from Cy"));
    EXPECT_TRUE(Holds(TranscriptNow(), 0xAABBCC));
    EXPECT_FALSE(Holds(TranscriptNow(), 0x778899));
    cy.Say("\251play(Ada,X(WWW))");
    ASSERT_TRUE(client.Hears("Cy:[p] WWW"));
    EXPECT_TRUE(Holds(TranscriptNow(), 0x778899));
}

TEST_F(InColours, TheLinesThatAreThereTakeTheOptionsToo) {
    client.Enter("WWW");
    ASSERT_TRUE(client.Hears("Ada: WWW"));
    EXPECT_TRUE(desk.window.Activate());
    desk.Choose("O", "o");
    const Window options = desk.program.WaitForWindow("Tarveth Options");
    desk.screen.Key("Down");
    ASSERT_TRUE(WaitUntil([&] { return client.Control("btnChange(0)").Has("showing"); }));
    desk.WaitUntilAtRest();
    desk.screen.Click(desk.Place("btnChange(0)").Centre());
    ASSERT_TRUE(WaitUntil([&] { return desk.program.Windows().size() == 4; }));
    Window colours = desk.program.Windows().back();
    ASSERT_TRUE(colours.Activate());
    desk.screen.Key("Alt+n"); // the color's name
    desk.screen.Key("Ctrl+A");
    desk.screen.Type("#C01020");
    desk.screen.Key("Tab");
    desk.screen.Key("Alt+s");
    ASSERT_TRUE(colours.WaitUntilGone());
    desk.program.WaitForWindow("Tarveth Options");
    desk.screen.Click(desk.Place("btnOkay").Centre());
    ASSERT_TRUE(options.WaitUntilGone());
    ASSERT_TRUE(client.window.Activate());
    EXPECT_TRUE(WaitUntil([&] { return Holds(TranscriptNow(), 0xC01020); }));
    EXPECT_FALSE(Holds(TranscriptNow(), 0x445566));
}

} // namespace
} // namespace tarveth::harness
