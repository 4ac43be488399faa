// The client window of the real program: what is in it, and how it opens and closes.

#include "tests/window/ClientDesk.h"

#include <gtest/gtest.h>

#include <map>

namespace tarveth::harness {
namespace {

constexpr const char* kIni = "[Options]\r\nAnimateMoves=0\r\nNickname=Ada\r\n";
constexpr const char* kNobody = "Internet Tarveth (Ada vs. <nobody>)";

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
    const std::string ini = folder.Read("tarveth.ini");
    ASSERT_NE(ini.find("[ClientPosition]"), std::string::npos) << ini;
    EXPECT_LT(ini.find("[Position]"), ini.find("[ClientPosition]"))
        << "the game's own settings are kept first";
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
    // Two wake-ups a second, for what the toolkit tells a screen reader, of a millisecond each.
    EXPECT_LT(WakeUpsBetween(before, after), 10);
    EXPECT_LT(after.cpuTime - before.cpuTime, std::chrono::milliseconds(10));
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

} // namespace
} // namespace tarveth::harness
