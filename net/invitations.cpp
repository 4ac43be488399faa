#include "net/invitations.h"

#include "net/wire/messagewriter.h"
#include "text/foldcase.h"

#include <string>

namespace tarveth {

Invitations::Invitations(ClientPersonPort& person, modSockets& connection, const Nicknames& nicks, Chat& chat,
                         GameLink& link)
    : person_(person), connection_(connection), nicks_(nicks), chat_(chat), link_(link) {}

void Invitations::Invite(std::string_view nick) {
    if (nick.empty()) {
        person_.ShowMessageBox("You must select a user to invite into a game.", "", BoxIcon::None);
    } else if (FoldCase(nick) == FoldCase(nicks_.mine)) {
        person_.ShowMessageBox("You can't invite yourself to a game.", "", BoxIcon::None);
    } else {
        connection_.SendMessage(WriteMessage("invite", {nick, nicks_.mine}));
        inviting_ = true;
    }
}

void Invitations::TakeInvitation(std::string_view from) {
    if (link_.IsOn() || inviting_)
        RefuseBusily(from);
    else if (person_.AskYesNo(std::string(from) + " is inviting you to a game.", "Join Game?"))
        Accept(from);
    else
        Refuse(from);
}

void Invitations::RefuseBusily(std::string_view from) {
    const std::string why = link_.IsOn() ? " is in a game already." : " is negotiating a game.";
    connection_.SendMessage(WriteMessage("refuse", {from, " [Auto] " + nicks_.mine + why}));
    chat_.ShowNotice(std::string(from) + " tried to invite you to a game.");
}

void Invitations::Refuse(std::string_view from) {
    connection_.SendMessage(
        WriteMessage("refuse", {from, " " + nicks_.mine + " has turned down your invitation."}));
    chat_.ShowNotice("You have refused the invitation from " + std::string(from));
}

void Invitations::Accept(std::string_view from) {
    connection_.SendMessage(WriteMessage(
        "accept", {from, nicks_.mine, nicks_.mine + " has accepted your invitation. Play may begin."}));
    link_.BeginAsInvited(from);
    chat_.ShowNotice("You have accepted the invitation from " + std::string(from));
}

// In a game it is a late answer to another invitation, which changes nothing.
void Invitations::TakeRefusal(std::string_view sentence) {
    inviting_ = false;
    chat_.ShowNotice(sentence);
}

void Invitations::TakeAcceptance(std::string_view from, std::string_view sentence) {
    if (link_.IsOn() && from == nicks_.opponent)
        return;
    if (link_.IsOn()) {
        // The other program believes to be in a game now, and would wait for a board.
        connection_.SendMessage(WriteMessage("end", {from, nicks_.mine}));
        chat_.ShowNotice(std::string(from) + " has accepted your invitation, but you are in a game already.");
        return;
    }
    inviting_ = false;
    link_.BeginAsInviter(from, sentence);
}

} // namespace tarveth
