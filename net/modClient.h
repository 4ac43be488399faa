// The lobby as this program sees it: who is there, who has invited whom, what is said; and the link to the
// opponent. It is there for the life of the program; a client window opens and closes it.
// modClient.cpp: opening, closing, sending. dispatch.cpp: what the server says. lobby.cpp: handshake, users,
// invitations. chat.cpp: the transcripts and the input line.
#pragma once

#include "net/ClientPorts.h"
#include "net/modSockets.h"
#include "net/modTools.h"
#include "net/userlist.h"
#include "net/wire/framing.h"

#include <array>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tarveth {

// GameLinkState; any but kLinkIdle counts as busy when an invitation comes.
inline constexpr std::int16_t kLinkIdle = 0;
inline constexpr std::int16_t kLinkInviting = 1; // an invitation of ours is unanswered
inline constexpr std::int16_t kLinkInGame = 3;

class modClient : public OpponentPort {
public:
    // All outlive the object; main may still be under construction. nickname, in UTF-8: the user's, which
    // changes with it. newUserSound is played for everybody who arrives.
    modClient(Game& game, NetGame& net, std::string& nickname, modMAIN& main, MainWindowPort& mainWindow,
              std::function<void()> newUserSound);

    // The client window is there: asks for a server and connects, as a command of its own if the game is busy
    // with one. The ports and the socket live until Close.
    void Open(ClientWindowPort& window, ClientPersonPort& person, AsyncSocket& socket);
    // The client window goes, and with it the connection and the link. What is on the board can be played on.
    // To be called between two passes of the game, as modMAIN::RunCommand does.
    void Close();
    bool IsOpen() const { return window_ != nullptr; }

    // What the window's controls do, while it is open. These four wait for their turn like any command.
    void Invite();
    void Break();
    void ChangeNickname();
    void Swap();
    // A line typed into txtTX. In windows-1252, as all texts here.
    void EnterLine(std::string_view line);
    void SetPrivateMode(bool privateMode);
    bool PrivateMode() const { return privateMode_; }
    void SelectUser(int index) { users_.Select(index); }

    const UserList& Users() const { return users_; }
    const std::string& NickName() const { return nickName_; }
    std::int16_t GameLinkState() const { return gameLinkState_; }

    // Handles the bytes that came from the server. To be called between two passes of the game.
    void DispatchMessages(std::string_view bytes);
    // A line for the transcripts, in the colour of whoever said it.
    void AppendTranscript(std::string_view text, bool isNotice);

    // While there is no opponent, nothing is sent.
    void SendGameMessage(std::string_view inner) override;
    void SendBoard() override;
    void AnnounceVictory(bool blueWon) override;
    void ShowNotice(std::string_view text) override { AppendTranscript(text, true); }
    void ShowPrivateLine(std::string_view text) override;
    std::string OpponentNick() const override { return opponentNick_; }

private:
    // A message of the server's: its argument text, and the fields of it, without the blanks around them.
    struct LobbyMessage {
        std::string_view arguments;
        std::array<std::string_view, 3> fields;
    };
    struct MessageRow;
    static std::span<const MessageRow> MessageTable();

    std::function<void()> WhileOpen(void (modClient::*handle)());
    std::function<void()> WhenFree(std::function<void()> run);
    void ConnectEvents();
    void Connect();
    void HandleConnected();
    void HandleData();
    void HandleClosed();
    void Unload();
    void Send(std::string_view name, std::initializer_list<std::string_view> fields);

    void DispatchMessage(const Frame& frame);
    void HandleChangeNick(const LobbyMessage& message);
    void HandleRemoveNick(const LobbyMessage& message);
    void HandleAddNick(const LobbyMessage& message);
    void HandleUpdate(const LobbyMessage& message);
    void HandleOldVersion(const LobbyMessage& message);
    void HandleInvite(const LobbyMessage& message);
    void HandleRefuse(const LobbyMessage& message);
    void HandleAccept(const LobbyMessage& message);
    void HandlePlay(const LobbyMessage& message);
    void HandleEnd(const LobbyMessage& message);
    void HandleSystem(const LobbyMessage& message);
    void HandleAlert(const LobbyMessage& message);

    void RefuseBusily(std::string_view from);
    void RefuseInvitation(std::string_view from);
    void AcceptInvitation(std::string_view from);
    void InviteSelected();
    void BreakGame();
    void AskNickname();
    void SwapSides();

    void SetCaption();
    void SetInGame(bool inGame);
    void EndGameLink();
    void TellCritical(std::string_view text, std::string_view title);
    void TellListIsLimited();
    void ShowUsersIfChanged();

    void ShowLines(std::string_view text);
    void TakeConfirmation(std::string_view text);
    LineKind KindOf(std::string_view text) const;
    void SayPrivately(std::string_view text);
    void SayToAll(std::string_view text);

    NetGame& net_;
    std::string& keptNickname_; // in UTF-8
    modMAIN& main_;
    MainWindowPort& mainWindow_;
    std::function<void()> newUserSound_;
    modTools tools_;

    // while the client window is open
    ClientWindowPort* window_ = nullptr;
    ClientPersonPort* person_ = nullptr;
    std::optional<modSockets> connection_;
    AsyncSocket* socket_ = nullptr;
    // Gone as soon as the window is to close, so are the events of its socket that still wait.
    std::shared_ptr<const char> visit_;
    bool connectionBroke_ = false;
    Framer framer_;
    bool prevUpdate_ = false; // the server has been answered
    UserList users_;
    bool usersChanged_ = false; // since the window was told
    bool toldListIsLimited_ = false;

    std::string nickName_;
    std::string opponentNick_; // empty while there is none
    std::int16_t gameLinkState_ = kLinkIdle;
    bool privateMode_ = false;
};

} // namespace tarveth
