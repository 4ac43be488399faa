// Who is there, and the way to an opponent: the handshake, the list of users, invitations and their answers.
#include "net/modClient.h"
#include "net/wire/modPARSER.h"
#include "net/wire/nickname.h"
#include "text/codepage.h"
#include "text/val.h"
#include "version.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tarveth {

namespace {

constexpr std::int32_t kOldestServer = 10037; // 1.0.37

// The number that the field begins with, 0 if it begins with none; one that is too far from zero for 16 bits
// counts as the last that is not.
std::int16_t NumberIn(std::string_view field) {
    using Limits = std::numeric_limits<std::int16_t>;
    const double within = std::clamp(Val(field), double{Limits::min()}, double{Limits::max()});
    return static_cast<std::int16_t>(std::lrint(within));
}

// One number for a version; the parts are not compared one by one.
std::int32_t VersionSum(std::string_view version) {
    std::array<std::string_view, 3> parts;
    SplitFields(version, ".", 0, parts);
    return NumberIn(parts[0]) * 10000 + NumberIn(parts[1]) * 1000 + NumberIn(parts[2]);
}

// Could that be somebody? An empty nickname means nobody.
bool IsNick(std::string_view nick) {
    return !nick.empty() && nick.size() <= UserList::kLongestNick;
}

} // namespace

void modClient::HandleUpdate(const LobbyMessage& message) {
    if (prevUpdate_)
        return;
    if (VersionSum(message.arguments) < kOldestServer) {
        TellCritical("The Tarveth Server to which you are connecting is too old, and will not work properly "
                     "with this version of Tarveth. You need to connect to a newer server.",
                     "Incompatible");
        Unload();
        return;
    }
    Send("clientver", {kVersion});
    Send("nick", {nickName_});
    users_.Clear();
    usersChanged_ = true;
    Send("sendnicks", {});
    prevUpdate_ = true;
}

void modClient::HandleChangeNick(const LobbyMessage& message) {
    const auto [oldNick, newNick, status] = message.fields;
    if (!IsNick(newNick)) {
        TellListIsLimited();
        return;
    }
    usersChanged_ = users_.Change(oldNick, newNick, NumberIn(status)) || usersChanged_;
    if (gameLinkState_ == kLinkInGame && oldNick == opponentNick_) {
        opponentNick_ = newNick;
        SetCaption();
    }
}

void modClient::HandleRemoveNick(const LobbyMessage& message) {
    const std::string_view nick = message.fields[0];
    usersChanged_ = users_.Remove(nick) || usersChanged_;
    // A server that has not said before that the link has ended will not do it any more.
    if (gameLinkState_ == kLinkInGame && nick == opponentNick_) {
        ShowNotice(opponentNick_ + " has left.");
        EndGameLink();
    }
}

void modClient::HandleAddNick(const LobbyMessage& message) {
    if (!IsNick(message.fields[0]) || !users_.Add(message.fields[0], NumberIn(message.fields[1]))) {
        TellListIsLimited();
        return;
    }
    usersChanged_ = true;
    newUserSound_();
}

void modClient::TellListIsLimited() {
    if (!toldListIsLimited_)
        ShowNotice("The server's list of users is too long, or holds nicknames that are too long or empty; "
                   "not all users are shown.");
    toldListIsLimited_ = true;
}

// Once for a batch of messages, and before events are handled while something is asked.
void modClient::ShowUsersIfChanged() {
    if (usersChanged_)
        window_->ShowUsers();
    usersChanged_ = false;
}

void modClient::TellCritical(std::string_view text, std::string_view title) {
    ShowUsersIfChanged();
    person_->ShowMessageBox(text, title, BoxIcon::Critical);
}

void modClient::HandleInvite(const LobbyMessage& message) {
    const std::string_view from = message.fields[1];
    if (!IsNick(from))
        return;
    if (gameLinkState_ != kLinkIdle) {
        RefuseBusily(from);
        return;
    }
    ShowUsersIfChanged();
    if (person_->AskYesNo(std::string(from) + " is inviting you to a game.", "Join Game?"))
        AcceptInvitation(from);
    else
        RefuseInvitation(from);
}

void modClient::RefuseBusily(std::string_view from) {
    const bool inGame = gameLinkState_ == kLinkInGame;
    Send("refuse",
         {from, " [Auto] " + nickName_ + (inGame ? " is in a game already." : " is negotiating a game.")});
    ShowNotice(std::string(from) + " tried to invite you to a game.");
}

void modClient::RefuseInvitation(std::string_view from) {
    Send("refuse", {from, " " + nickName_ + " has turned down your invitation."});
    ShowNotice("You have refused the invitation from " + std::string(from));
}

void modClient::AcceptInvitation(std::string_view from) {
    Send("accept", {from, nickName_, nickName_ + " has accepted your invitation. Play may begin."});
    main_.NewGame();
    tools_.SetLocalRed();
    gameLinkState_ = kLinkInGame;
    SetInGame(true);
    opponentNick_ = from;
    SetCaption();
    ShowNotice("You have accepted the invitation from " + std::string(from));
}

// In a game it is a late answer to another invitation, which changes nothing.
void modClient::HandleRefuse(const LobbyMessage& message) {
    if (gameLinkState_ != kLinkInGame)
        gameLinkState_ = kLinkIdle;
    ShowNotice(message.fields[1]);
}

void modClient::HandleAccept(const LobbyMessage& message) {
    const auto [me, from, sentence] = message.fields;
    if (!IsNick(from) || (gameLinkState_ == kLinkInGame && from == opponentNick_))
        return;
    if (gameLinkState_ == kLinkInGame) {
        Send("end", {from, nickName_}); // or his program would wait for a board
        ShowNotice(std::string(from) + " has accepted your invitation, but you are in a game already.");
        return;
    }
    gameLinkState_ = kLinkInGame;
    SetInGame(true);
    tools_.SetLocalBlue();
    ShowNotice(sentence);
    opponentNick_ = from;
    SetCaption();
    SendBoard();
}

void modClient::HandleEnd(const LobbyMessage&) {
    if (gameLinkState_ != kLinkInGame)
        return;
    ShowNotice(opponentNick_ + " has broken the connection with you.");
    EndGameLink();
}

void modClient::Invite() {
    main_.RunCommand(WhileOpen(&modClient::InviteSelected));
}

void modClient::InviteSelected() {
    window_->FocusInput();
    if (gameLinkState_ == kLinkInGame)
        return;
    const std::string target(users_.SelectedNick());
    if (users_.Selected() == UserList::kNobody) {
        person_->ShowMessageBox("You must select a user to invite into a game.", "", BoxIcon::None);
    } else if (FoldCase(target) == FoldCase(nickName_)) {
        person_->ShowMessageBox("You can't invite yourself to a game.", "", BoxIcon::None);
    } else {
        Send("invite", {target, nickName_});
        gameLinkState_ = kLinkInviting;
    }
}

void modClient::Break() {
    main_.RunCommand(WhileOpen(&modClient::BreakGame));
}

void modClient::BreakGame() {
    if (gameLinkState_ != kLinkInGame)
        return;
    Send("end", {opponentNick_, nickName_});
    ShowNotice("You have broken the connection with " + opponentNick_ + ".");
    EndGameLink();
}

void modClient::ChangeNickname() {
    main_.RunCommand(WhileOpen(&modClient::AskNickname));
}

void modClient::AskNickname() {
    const auto answer = person_->AskText("Enter your preferred nickname:", "Nickname", nickName_);
    if (!answer || TrimBlanks(*answer).empty())
        return;
    nickName_ = CleanNickname(*answer);
    keptNickname_ = FromWire(nickName_);
    SetCaption();
    Send("nick", {nickName_});
}

void modClient::Swap() {
    main_.RunCommand(WhileOpen(&modClient::SwapSides));
}

void modClient::SwapSides() {
    if (gameLinkState_ != kLinkInGame)
        return;
    tools_.SwapSides();
    SendGameMessage("C(swap)");
}

} // namespace tarveth
