// A visit to a lobby: it begins when the client window opens and ends when that closes. What is known of the
// lobby, its users and the opponent is known for this long. LobbyVisit.cpp: its course, and what the user
// does. dispatch.cpp: what the server says.
#pragma once

#include "net/ClientParts.h"
#include "net/ClientPorts.h"
#include "net/chat.h"
#include "net/gamelink.h"
#include "net/handshake.h"
#include "net/inputline.h"
#include "net/invitations.h"
#include "net/lobbyusers.h"
#include "net/modSockets.h"
#include "net/nicknames.h"
#include "net/wire/framing.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

namespace tarveth {

class LobbyVisit : public std::enable_shared_from_this<LobbyVisit> {
public:
    // All outlive the object, which is owned by a shared_ptr: what waits for its turn in the turn machine's
    // gate is dropped once the visit is over.
    LobbyVisit(const ClientParts& parts, ClientWindowPort& window, ClientPersonPort& person,
               AsyncSocket& socket);
    LobbyVisit(const LobbyVisit&) = delete;
    LobbyVisit& operator=(const LobbyVisit&) = delete;

    // Shows the window's first state, then asks for a server and connects, as a command of its own.
    void Begin();
    // Ends the link to the opponent; the window is about to go.
    void End();

    // What the user does. Each waits for its turn like any command of the menus.
    void Invite() { RunCommand(&LobbyVisit::InviteSelected); }
    void Break() { RunCommand(&LobbyVisit::BreakGame); }
    void ChangeNickname() { RunCommand(&LobbyVisit::AskNickname); }
    void Swap() { RunCommand(&LobbyVisit::SwapSides); }
    void AnswerInvitation(bool yes);

    // Handles the bytes that came from the server. To be called between two passes of the game.
    void DispatchMessages(std::string_view bytes);

    // The time for the rest of a line of chat is over.
    void ShowKeptText();

    std::int16_t GameLinkState() const;
    const Nicknames& Nicks() const { return nicks_; }
    LobbyUsers& Users() { return users_; }
    InputLine& Input() { return input_; }
    Chat& Transcripts() { return chat_; }
    GameLink& Link() { return link_; }

private:
    struct MessageRow;

    using Step = std::function<void(LobbyVisit&)>;
    std::function<void()> UnlessOver(Step step);
    std::function<void()> WhenFree(Step step);
    void RunCommand(Step step);

    void Connect();
    void HandleConnected();
    void HandleData();
    void HandleClosed();
    // The window is to close; what else the server says is not heard.
    void Leave();

    void InviteSelected();
    bool AskForOther(std::string_view picked, std::string_view selected);
    void BreakGame();
    void AskNickname();
    void SwapSides();

    void DispatchMessage(const Frame& frame);
    void Greet(std::string_view serverVersion);
    void RenameUser(std::string_view oldNick, std::string_view newNick, std::int16_t status);
    void RemoveUser(std::string_view nick);
    void TakeInvitation(std::string_view from);
    void TakeEnd(std::string_view from);
    void TellCritical(std::string_view text, std::string_view title);
    void LeaveIncompatible(std::string_view text);

    const ClientParts& parts_;
    ClientWindowPort& window_;
    ClientPersonPort& person_;
    AsyncSocket& socket_;
    bool leaving_ = false;
    bool connectionBroke_ = false;

    Framer framer_;
    Nicknames nicks_;
    modSockets connection_;
    Chat chat_;
    LobbyUsers users_;
    Handshake handshake_;
    GameLink link_;
    Invitations invitations_;
    InputLine input_;
};

} // namespace tarveth
