#include "net/LobbyVisit.h"

#include "net/linkstate.h"
#include "net/wire/messagewriter.h"
#include "net/wire/nickname.h"
#include "text/codepage.h"
#include "text/trim.h"

#include <utility>

namespace tarveth {

LobbyVisit::LobbyVisit(const ClientParts& parts, ClientWindowPort& window, ClientPersonPort& person,
                       AsyncSocket& socket)
    : parts_(parts),
      window_(window),
      person_(person),
      socket_(socket),
      nicks_{CleanNickname(ToWire(parts.nickname)), {}},
      connection_(socket, parts.net, window, person),
      chat_(window, nicks_),
      users_(window, chat_, parts.newUserSound),
      handshake_(connection_, nicks_, users_),
      link_(parts, window, connection_, nicks_, chat_),
      invitations_(person, connection_, nicks_, chat_, link_),
      input_(window, connection_, nicks_, chat_, link_) {}

void LobbyVisit::Begin() {
    window_.ShowUsers();
    input_.SetPrivateMode(false);
    link_.SetInGame(false);
    link_.ShowCaption();
    // Bytes wait in the socket while anything else is going on, so that all is handled in its order.
    socket_.ConnectEvent = WhenFree(&LobbyVisit::HandleConnected);
    socket_.DataArrivalEvent = WhenFree(&LobbyVisit::HandleData);
    socket_.CloseEvent = WhenFree(&LobbyVisit::HandleClosed);
    RunCommand(&LobbyVisit::Connect);
}

void LobbyVisit::End() {
    leaving_ = true;
    const bool wasInGame = link_.IsOn();
    link_.End();
    parts_.net.NetConnected = false;
    if (wasInGame)
        parts_.mainWindow.ShowMessage(
            "The connection to the server is closed; the game goes on at this screen.");
    else if (connectionBroke_)
        parts_.mainWindow.ShowMessage("The connection to the server is closed.");
}

std::function<void()> LobbyVisit::UnlessOver(Step step) {
    return [visit = weak_from_this(), step] {
        if (const auto self = visit.lock(); self != nullptr && !self->leaving_)
            (self.get()->*step)();
    };
}

std::function<void()> LobbyVisit::WhenFree(Step step) {
    return [&main = parts_.main, run = UnlessOver(step)] { main.RunWhenFree(run); };
}

void LobbyVisit::RunCommand(Step step) {
    parts_.main.RunCommand(UnlessOver(step));
}

void LobbyVisit::Connect() {
    connection_.ConnectToServer();
}

void LobbyVisit::HandleConnected() {
    connection_.Connected();
}

void LobbyVisit::HandleData() {
    DispatchMessages(connection_.Receive());
}

void LobbyVisit::HandleClosed() {
    connectionBroke_ = true;
    Leave();
}

void LobbyVisit::Leave() {
    leaving_ = true;
    window_.Unload();
}

std::int16_t LobbyVisit::GameLinkState() const {
    if (link_.IsOn())
        return kLinkInGame;
    return invitations_.IsInviting() ? kLinkInviting : kLinkIdle;
}

void LobbyVisit::InviteSelected() {
    window_.FocusInput();
    if (!link_.IsOn())
        invitations_.Invite(users_.List().SelectedNick());
}

void LobbyVisit::BreakGame() {
    link_.Break();
}

void LobbyVisit::SwapSides() {
    link_.Swap();
}

void LobbyVisit::AskNickname() {
    const auto answer = person_.AskText("Enter your preferred nickname:", "Nickname", nicks_.mine);
    if (!answer || TrimBlanks(*answer).empty())
        return;
    nicks_.mine = CleanNickname(*answer);
    parts_.nickname = FromWire(nicks_.mine);
    link_.ShowCaption();
    connection_.SendMessage(WriteMessage("nick", {nicks_.mine}));
}

} // namespace tarveth
