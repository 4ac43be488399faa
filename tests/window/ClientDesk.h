// The client window of a running game, and servers that it can connect to.
#pragma once

#include "tests/server/LobbyProgram.h"
#include "tests/window/GameDesk.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarveth::harness {

// Gives a loopback address that no other test uses at the same time, since the game's port is fixed.
std::string OwnAddress();

// A lobby at such an address, on the game's port.
class Lobby : public LobbyProgram {
public:
    explicit Lobby(std::vector<std::string> options = {});
};

// A server at such an address that sends only what the test gives it, and ignores what it receives.
class PlainServer {
public:
    PlainServer();
    ~PlainServer();
    PlainServer(const PlainServer&) = delete;
    PlainServer& operator=(const PlainServer&) = delete;

    [[nodiscard]] const std::string& Address() const { return address_; }
    // Waits for the one client.
    void Accept();
    void Say(std::string_view bytes) const;

private:
    std::string address_ = OwnAddress();
    int listener_;
    int client_ = -1;
};

class ClientDesk {
public:
    // Opens the window from the menu of the game, and waits until it asks for a server. `desk` must live as
    // long as this does.
    explicit ClientDesk(GameDesk& desk);
    // Opens the window and connects to the server at this address.
    ClientDesk(GameDesk& desk, const std::string& address);

    // Answers the question for a server; an empty address cancels it.
    void ChooseServer(const std::string& address);

    // Clicks on a control of the window, bringing it to the front.
    void Press(const std::string& id);
    // Types a line and sends it.
    void Enter(std::string_view line);
    // Waits until there is a user of that name and selects them.
    void Select(const std::string& nick);

    [[nodiscard]] std::string Text(const std::string& id) const { return desk_->Text(id); }
    // Give the general and the private transcript, with a line end after each line.
    [[nodiscard]] std::string Transcript() const { return Text("txtRX(0)"); }
    [[nodiscard]] std::string PrivateTranscript() const { return Text("txtRX(1)"); }
    // Waits for the line; false if it does not come.
    [[nodiscard]] bool Hears(const std::string& line) const;
    [[nodiscard]] bool TitleBecomes(const std::string& title) const;
    [[nodiscard]] std::vector<std::string> Users() const;
    // Waits until the list is this one; false if that does not happen.
    [[nodiscard]] bool UsersBecome(const std::vector<std::string>& users) const;
    [[nodiscard]] AccessibleNode Control(const std::string& id) const;
    [[nodiscard]] bool Enabled(const std::string& id) const { return Control(id).Has("sensitive"); }

    // Waits for the dialog or box of that title to have the keyboard and to say this. Throws
    // std::runtime_error when none comes.
    [[nodiscard]] Window Box(std::string_view title, const std::string& text) const;
    // Says yes to an invitation. Throws std::runtime_error when there is none.
    void Join(const std::string& inviter);
    // Chooses by access keys, such as ("A", "i") for the invitation.
    void Choose(std::string_view menuKey, std::string_view itemKey);
    // Keeps a picture of the window in the build folder's window-shots/.
    void KeepShot(const std::string& name);

    Window window;

private:
    void BringToFront();

    GameDesk* desk_;
};

} // namespace tarveth::harness
