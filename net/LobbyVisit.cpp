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
      invitations_(window, person, connection_, nicks_, chat_, link_),
      input_(window, connection_, nicks_, chat_, link_) {}

void LobbyVisit::Begin() {
    window_.ShowUsers();
    input_.SetPrivateMode(false);
    link_.SetInGame(false);
    window_.ShowInviting(false);
    link_.ShowCaption();
    // Bytes wait in the socket while anything else is going on, so that all is handled in its order.
    socket_.ConnectEvent = WhenFree(&LobbyVisit::HandleConnected);
    socket_.DataArrivalEvent = WhenFree(&LobbyVisit::HandleData);
    socket_.CloseEvent = WhenFree(&LobbyVisit::HandleClosed);
    RunCommand(&LobbyVisit::Connect);
}

void LobbyVisit::End() {
    leaving_ = true;
    invitations_.End();
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
    return [visit = weak_from_this(), step = std::move(step)] {
        if (const auto self = visit.lock(); self != nullptr && !self->leaving_)
            step(*self);
    };
}

std::function<void()> LobbyVisit::WhenFree(Step step) {
    return [&main = parts_.main, run = UnlessOver(std::move(step))] { main.RunWhenFree(run); };
}

void LobbyVisit::RunCommand(Step step) {
    parts_.main.RunCommand(UnlessOver(std::move(step)));
}

void LobbyVisit::Connect() {
    connection_.ConnectToServer();
}

void LobbyVisit::ShowKeptText() {
    parts_.main.RunWhenFree(UnlessOver([](LobbyVisit& visit) { visit.chat_.ShowKeptText(); }));
}

void LobbyVisit::HandleConnected() {
    connection_.Connected();
}

void LobbyVisit::HandleData() {
    DispatchMessages(connection_.Receive());
}

void LobbyVisit::HandleClosed() {
    connectionBroke_ = true;
    chat_.ShowKeptText();
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
    if (link_.IsOn())
        return;
    if (invitations_.IsInviting()) {
        invitations_.TellThatOneWaits();
        return;
    }
    const UserList& users = users_.List();
    const std::string nick(users.SelectedNick());
    if (nick.empty() || nick == users.PickedNick() || AskForOther(users.PickedNick(), nick))
        invitations_.Invite(nick);
}

// The row that was picked may hold somebody else by now: a renamed user goes to the end of the list, and the
// selection stays on its row.
bool LobbyVisit::AskForOther(std::string_view picked, std::string_view selected) {
    users_.ShowIfChanged();
    return person_.AskYesNo("You picked " + std::string(picked) + ", but the list has changed: invite " +
                                std::string(selected) + "?",
                            "Invite?");
}

void LobbyVisit::AnswerInvitation(bool yes) {
    RunCommand([yes, question = invitations_.Question()](LobbyVisit& visit) {
        visit.invitations_.Answer(question, yes);
    });
}

void LobbyVisit::BreakGame() {
    if (link_.IsOn())
        link_.Break();
    else
        invitations_.Withdraw();
}

void LobbyVisit::SwapSides() {
    if (link_.IsOn())
        link_.Swap();
    else
        chat_.ShowNotice("You have no opponent to swap sides with.");
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
