// The client window of the real program: what is in it, how it opens and closes, and what it shows.

#include "tests/window/ClientDesk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

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

// The controls of the client window by their given names, as they are now.
std::map<std::string, AccessibleNode> Controls(const GameDesk& desk) {
    std::map<std::string, AccessibleNode> controls;
    bool inClient = false;
    for (const AccessibleNode& node : desk.reader.Read()) {
        inClient = node.depth == 1 ? node.name.starts_with("Internet Tarveth") : inClient;
        if (inClient && !node.id.empty()) {
            controls[node.id] = node;
        }
    }
    return controls;
}

// A game and its client window, which has no server.
class Client : public testing::Test {
protected:
    explicit Client(const std::string& ini = kIni) : folder(ini), client(WithoutServer(desk)) {}

    static ClientDesk WithoutServer(GameDesk& desk) {
        ClientDesk opened(desk);
        opened.ChooseServer("");
        desk.WaitUntilAtRest();
        return opened;
    }

    GameFolder folder;
    GameDesk desk{folder};
    ClientDesk client;
};

TEST_F(Client, HoldsItsControls) {
    const auto controls = Controls(desk);
    std::map<std::string, std::string> texts;
    for (const auto& [id, control] : controls) {
        texts[id] = control.role == "text" || control.role == "table" ? control.role
                    : control.role == "label"                         ? control.text
                                              : control.name + ": " + control.description;
    }
    const std::map<std::string, std::string> expected = {
        {"btnBreak", "Break: Break the current game connection"},
        {"btnExit", "Exit: Close this window"},
        {"btnInvite", "Invite: Invite the selected user to play a game"},
        {"btnNickname", "Nickname: Change your nickname"},
        {"btnP", "Private: Show and write what only your opponent sees"},
        {"lblRX", "Transcript:"},
        {"lblTX", "Type a short message then press Enter to send it"},
        {"lblUsers", "Users:"},
        {"lstUsers", "table"},
        {"txtRX(0)", "text"},
        {"txtRX(1)", "text"},
        {"txtTX", "text"}};
    EXPECT_EQ(texts, expected);
    EXPECT_TRUE(controls.at("txtTX").Has("focused"));
    EXPECT_FALSE(controls.at("txtRX(0)").Has("editable"));
    EXPECT_TRUE(controls.at("btnInvite").Has("sensitive"));
    EXPECT_FALSE(controls.at("btnBreak").Has("sensitive"));
}

TEST_F(Client, HoldsItsCommandsInTheirOrder) {
    std::string tree;
    bool inClient = false;
    for (const AccessibleNode& node : desk.reader.Read()) {
        inClient = node.depth == 1 ? node.name == kNobody : inClient;
        if (inClient && (node.role.ends_with("menu item") || node.role == "menu")) {
            tree += (node.role == "menu" ? "" : "  ") + node.name + '\n';
        } else if (inClient && node.role == "separator" && node.Has("selectable")) {
            tree += "  -\n";
        }
    }
    EXPECT_EQ(tree,
              "File\n  Exit\n"
              "Actions\n  Invite Player\n  Break Invite\n  Change Nickname\n  -\n  Swap Blue & Red\n  -\n"
              "  Clear Transcript\n  Clear Private Transcript\n"
              "View\n  Transcript (General)\n  Transcript (Private)\n");
}

TEST_F(Client, StaysWithoutAServer) {
    EXPECT_EQ(client.window.Title(), kNobody);
    client.Enter("nobody hears this");
    EXPECT_TRUE(client.Users().empty());
    desk.window.Activate();
    desk.Move("4E", "4D");
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red")) << "the game goes on beside it";
}

TEST_F(Client, IsRaisedWhenItIsAskedForAgain) {
    ASSERT_TRUE(desk.window.Activate());
    desk.Choose("F", "i");
    EXPECT_TRUE(WaitUntil([&] { return desk.screen.Active() == client.window.Id(); }));
    EXPECT_EQ(desk.program.Windows().size(), 2U);
}

TEST_F(Client, ClosesByItsButtonItsMenuAndItsCross) {
    client.Press("btnExit");
    ASSERT_TRUE(client.window.WaitUntilGone());
    ClientDesk second = WithoutServer(desk);
    second.Choose("F", "x");
    ASSERT_TRUE(second.window.WaitUntilGone());
    ClientDesk third = WithoutServer(desk);
    third.window.Close();
    ASSERT_TRUE(third.window.WaitUntilGone());
    EXPECT_TRUE(desk.program.Alive());
}

TEST_F(Client, ClosesWithTheGame) {
    EXPECT_EQ(desk.Close(), 0);
    EXPECT_EQ(desk.program.Output(), "");
    EXPECT_NE(folder.Read("tarveth.ini").find("[ClientPosition]"), std::string::npos);
}

TEST_F(Client, StandsWhereItStoodWhenItWasClosed) {
    client.window.MoveTo({140, 90});
    client.window.Resize(701, 503);
    ASSERT_TRUE(WaitUntil([&] { return client.window.ClientArea().width == 701; }));
    desk.WaitUntilAtRest();
    const Rect stood = client.window.Frame();
    client.Press("btnExit");
    ASSERT_TRUE(client.window.WaitUntilGone());
    EXPECT_NE(folder.Read("tarveth.ini").find("[ClientPosition]"), std::string::npos);
    const ClientDesk again = WithoutServer(desk);
    EXPECT_TRUE(WaitUntil([&] { return again.window.Frame() == stood; }));
    EXPECT_EQ(desk.Close(), 0);
    GameDesk next(folder);
    const ClientDesk afterwards = WithoutServer(next);
    EXPECT_TRUE(WaitUntil([&] { return afterwards.window.Frame() == stood; }));
}

TEST_F(Client, ChangesToPrivateModeAndBack) {
    client.Press("btnP");
    EXPECT_TRUE(desk.TextBecomes("lblRX", "Transcript: (private mode)"));
    auto controls = Controls(desk);
    EXPECT_EQ(controls["lblTX"].text, "Messages you type will be seen only by your opponent!");
    EXPECT_FALSE(controls["txtRX(0)"].Has("showing"));
    EXPECT_TRUE(controls["txtRX(1)"].Has("showing"));
    EXPECT_TRUE(controls["txtTX"].Has("focused"));
    client.Choose("V", "g");
    EXPECT_TRUE(desk.TextBecomes("lblRX", "Transcript:"));
    controls = Controls(desk);
    EXPECT_EQ(controls["lblTX"].text, "Type a short message then press Enter to send it");
    EXPECT_TRUE(controls["txtRX(0)"].Has("showing"));
    EXPECT_FALSE(controls["txtRX(1)"].Has("showing"));
}

TEST_F(Client, ChecksTheTranscriptThatIsShown) {
    for (const bool privateMode : {false, true}) {
        desk.screen.Key("Alt+v");
        const auto isChecked = [&](const char* name) {
            const auto item = desk.reader.Find(WithName(name));
            return item && item->Has("checked");
        };
        EXPECT_TRUE(WaitUntil([&] {
            return isChecked("Transcript (Private)") == privateMode &&
                   isChecked("Transcript (General)") != privateMode;
        }));
        desk.screen.Key("p");
        EXPECT_TRUE(desk.TextBecomes("lblRX", "Transcript: (private mode)"));
    }
}

TEST_F(Client, KeepsWhatIsBeingWrittenWhenTheModeChanges) {
    desk.screen.Type("half a ");
    client.Press("btnP");
    EXPECT_TRUE(desk.TextBecomes("lblRX", "Transcript: (private mode)"));
    desk.WaitUntilAtRest();
    desk.screen.Type("line");
    EXPECT_TRUE(desk.TextBecomes("txtTX", "half a line"));
}

TEST_F(Client, SaysWhenNobodyIsSelected) {
    client.Press("btnInvite");
    const Window box = client.Box("Tarveth", "You must select a user to invite into a game.");
    desk.screen.Key("Return");
    EXPECT_TRUE(box.WaitUntilGone());
    EXPECT_TRUE(WaitUntil([&] { return client.Control("txtTX").Has("focused"); }));
}

TEST_F(Client, UsesNoProcessorAtRest) {
    desk.window.Activate(); // in the client window a caret blinks
    desk.WaitUntilAtRest();
    const ProcessUsage before = desk.program.Usage();
    std::this_thread::sleep_for(std::chrono::seconds(5));
    const ProcessUsage after = desk.program.Usage();
    EXPECT_LE(after.cpuSeconds, before.cpuSeconds + 0.01);
    EXPECT_LT(after.voluntarySwitches - before.voluntarySwitches, 10);
}

TEST(ClientConnection, SaysThatItCouldNotBeMade) {
    const GameFolder folder(kIni);
    GameDesk desk(folder);
    ClientDesk client(desk, OwnAddress()); // where nobody listens
    const Window box = client.Box("Tarveth", "Could not connect.");
    desk.screen.Key("Return");
    EXPECT_TRUE(box.WaitUntilGone());
    EXPECT_EQ(client.window.Title(), kNobody);
    EXPECT_TRUE(client.window.Visible());
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
    ASSERT_TRUE(client.Hears("Bob has turned down your invitation."));
    desk.WaitUntilAtRest();
    const Point row = desk.reader.Find(WithRoleAndName("table cell", "Bob"))->extents.Centre();
    desk.screen.Click(row);
    desk.screen.Click(row);
    EXPECT_NE(bob.HearUntil("\251invite(Bob,Ada)"), "");
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
    const Window box = client.Box("Join Game?", "Bob is inviting you to a game.");
    desk.screen.Key("Alt+y");
    ASSERT_TRUE(box.WaitUntilGone());
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
    const Window box = client.Box("Join Game?", "Cy is inviting you to a game.");
    desk.screen.Key("Alt+y");
    ASSERT_TRUE(box.WaitUntilGone());
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
