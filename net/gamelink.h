// The link to an opponent, from the moment a game is agreed to its end, and what travels along it.
// Invitations are another matter (invitations.h).
#pragma once

#include "net/ClientParts.h"
#include "net/ClientPorts.h"
#include "net/chat.h"
#include "net/modSockets.h"
#include "net/modTools.h"

#include <string>
#include <string_view>

namespace tarveth {

class GameLink : public OpponentPort {
public:
    // All outlive the object.
    GameLink(const ClientParts& parts, ClientWindowPort& window, modSockets& connection, Nicknames& nicks,
             Chat& chat);

    bool IsOn() const { return !nicks_.opponent.empty(); }

    // An opponent has been found: by an invitation to this user, who plays Red on the board that the opponent
    // sends; or by one of this user's, who plays Blue and sends the board. Until the opponent's program sends
    // something, the game that was on this user's board is kept: the link may end before.
    void BeginAsInvited(std::string_view opponent);
    void BeginAsInviter(std::string_view opponent, std::string_view sentence);
    // Ends the link; the game on the board can be played on at this screen.
    void End();
    // These two are the user's wish, while the link is on: to end it; to change sides.
    void Break();
    void Swap();

    // The opponent's program has sent these in-game messages.
    void Receive(std::string_view inner) { tools_.ParseGameMessages(inner); }
    // The opponent has another nickname now.
    void RenameOpponent(std::string_view nick);
    // Shows the nicknames of both players in the client window's caption.
    void ShowCaption() { window_.ShowCaption(nicks_.Caption()); }
    // Tells the machine and the client window that a game with an opponent is on, or is not.
    void SetInGame(bool inGame);

    // While there is no opponent, nothing is sent.
    void SendGameMessage(std::string_view inner) override;
    void SendBoard();
    void AnnounceVictory(bool blueWon);
    void ShowNotice(std::string_view text) override { chat_.ShowNotice(text); }
    void ShowPrivateLine(std::string_view text) override { chat_.ShowPrivateLine(text); }
    std::string OpponentNick() const override { return nicks_.opponent; }

private:
    const Game& game_;
    NetGame& net_;
    modMAIN& main_;
    ClientWindowPort& window_;
    modSockets& connection_;
    Nicknames& nicks_;
    Chat& chat_;
    modTools tools_;
};

} // namespace tarveth
