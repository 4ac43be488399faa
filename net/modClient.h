// The lobby as this program sees it: who is there, who has invited whom, what is said; and the link to the
// opponent. It is there for the life of the program; a client window opens and closes it.
#pragma once

#include "net/ClientPorts.h"
#include "net/framing.h"
#include "net/modSockets.h"
#include "net/modTools.h"
#include "net/userlist.h"
#include "storage/settings.h"
#include "storage/sounds.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarveth {

// GameLinkState; any but kLinkIdle counts as busy when an invitation comes.
inline constexpr std::int16_t kLinkIdle = 0;
inline constexpr std::int16_t kLinkInviting = 1; // an invitation of ours is unanswered
inline constexpr std::int16_t kLinkInGame = 3;

class modClient : public OpponentPort {
public:
    // All outlive the object; main may still be under construction.
    modClient(Game& game, NetGame& net, Settings& settings, modMAIN& main, MainWindowPort& mainWindow,
              Sounds& sounds);

    // The client window is there: asks for a server and connects. The ports and the socket live until Close.
    void Open(ClientWindowPort& window, ClientPersonPort& person, AsyncSocket& socket);
    // The client window goes, and with it the connection and the link. What is on the board can be played on.
    void Close();
    bool IsOpen() const { return window_ != nullptr; }

    // What the window's controls do. To be called while it is open.
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

    void SendGameMessage(std::string_view inner) override;
    void SendBoard() override { tools_.SendBoard(); }
    void AnnounceVictory(bool blueWon) override;
    void ShowNotice(std::string_view text) override { AppendTranscript(text, true); }
    void ShowPrivateLine(std::string_view text) override;
    std::string OpponentNick() const override { return opponentNick_; }

private:
    void SetCaption();
    void SetInGame(bool inGame);
    void EndGameLink();

    NetGame& net_;
    Settings& settings_;
    modMAIN& main_;
    MainWindowPort& mainWindow_;
    Sounds& sounds_;
    modTools tools_;

    // while the client window is open
    ClientWindowPort* window_ = nullptr;
    ClientPersonPort* person_ = nullptr;
    std::optional<modSockets> connection_;
    std::shared_ptr<const void> visit_; // gone, so are the events of this window's socket that still wait
    Framer framer_;
    bool prevUpdate_ = false; // the server has been answered
    UserList users_;

    std::string nickName_;
    std::string opponentNick_; // empty while there is none
    std::int16_t gameLinkState_ = kLinkIdle;
    bool privateMode_ = false;
};

} // namespace tarveth
