// Network play as the rest of the program sees it, for the life of the program: a client window opens a visit
// to a lobby and closes it, and the turn machine sends what happens on the board along it. While there is no
// visit, nothing is sent and nothing is shown.
#pragma once

#include "net/ClientParts.h"
#include "net/ClientPorts.h"
#include "net/linkstate.h"
#include "net/userlist.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tarveth {

class AsyncSocket;
class LobbyVisit;

class modClient : public NetworkPort {
public:
    // All outlive the object; main may still be under construction. nickname, in UTF-8: the user's, which
    // changes with it. newUserSound is played for everybody who arrives.
    modClient(Game& game, NetGame& net, std::string& nickname, modMAIN& main, MainWindowPort& mainWindow,
              std::function<void()> newUserSound);
    ~modClient() override;
    modClient(const modClient&) = delete;
    modClient& operator=(const modClient&) = delete;

    // The client window is there: asks for a server and connects, as a command of its own if the game is busy
    // with one. The ports and the socket live until Close.
    void Open(ClientWindowPort& window, ClientPersonPort& person, AsyncSocket& socket);
    // The client window goes, and with it the connection and the link. What is on the board can be played on.
    // To be called between two passes of the game, as modMAIN::RunCommand does.
    void Close();
    bool IsOpen() const { return visit_ != nullptr; }

    // What the window's controls do, while it is open. These four wait for their turn like any command.
    void Invite();
    void Break();
    void ChangeNickname();
    void Swap();
    // The answer to the question whether to join a game; likewise.
    void AnswerInvitation(bool yes);
    // A line typed into txtTX. In windows-1252, as all texts here.
    void EnterLine(std::string_view line);
    void SetPrivateMode(bool privateMode);
    bool PrivateMode() const;
    void SelectUser(int index);

    // Of the visit; of none, nobody and nothing.
    const UserList& Users() const;
    std::string NickName() const;
    std::string OpponentNick() const override;
    std::int16_t GameLinkState() const;

    // Handles the bytes that came from the server. To be called between two passes of the game.
    void DispatchMessages(std::string_view bytes);
    // The chat timer that the window was asked for has ended.
    void ShowKeptText();
    // A line for the transcripts, in the colour of whoever said it.
    void AppendTranscript(std::string_view text, bool isNotice);

    // While there is no opponent, nothing is sent.
    void SendGameMessage(std::string_view inner) override;
    void SendBoard() override;
    void AnnounceVictory(bool blueWon) override;
    void ShowNotice(std::string_view text) override { AppendTranscript(text, true); }

private:
    ClientParts parts_;
    std::shared_ptr<LobbyVisit> visit_;
};

} // namespace tarveth
