#include "net/invitations.h"

#include "net/wire/messagewriter.h"
#include "text/foldcase.h"

#include <algorithm>

namespace tarveth {

namespace {

constexpr std::size_t kMostAsking = 100; // a server may name any number of inviters

} // namespace

Invitations::Invitations(ClientWindowPort& window, ClientPersonPort& person, modSockets& connection,
                         const Nicknames& nicks, Chat& chat, GameLink& link)
    : window_(window), person_(person), connection_(connection), nicks_(nicks), chat_(chat), link_(link) {}

void Invitations::Invite(std::string_view nick) {
    if (nick.empty()) {
        person_.ShowMessageBox("You must select a user to invite into a game.", "", BoxIcon::None);
    } else if (FoldCase(nick) == FoldCase(nicks_.mine)) {
        person_.ShowMessageBox("You can't invite yourself to a game.", "", BoxIcon::None);
    } else {
        connection_.SendMessage(WriteMessage("invite", {nick, nicks_.mine}));
        withdrawn_.clear();
        SetInvited(nick);
        chat_.ShowNotice("You have invited " + invited_ + ".");
    }
}

void Invitations::TellThatOneWaits() {
    chat_.ShowNotice("You have invited " + invited_ +
                     " already, who has not answered yet. \"Break Invite\" withdraws the invitation.");
}

void Invitations::Withdraw() {
    if (!IsInviting())
        return;
    connection_.SendMessage(WriteMessage("end", {invited_, nicks_.mine}));
    chat_.ShowNotice("You have withdrawn your invitation to " + invited_ + ".");
    withdrawn_ = invited_;
    SetInvited({});
}

void Invitations::SetInvited(std::string_view nick) {
    invited_ = nick;
    window_.ShowInviting(IsInviting());
}

void Invitations::Answer(std::uint64_t question, bool yes) {
    if (question == 0 || question != Question())
        return;
    const std::string from = asking_.front().nick;
    asking_.pop_front();
    if (yes)
        Accept(from);
    else
        Refuse(from);
    ShowQuestion();
}

void Invitations::TakeInvitation(std::string_view from) {
    if (FindAsking(from) != asking_.end())
        return;
    if (link_.IsOn() || IsInviting() || asking_.size() == kMostAsking) {
        RefuseBusily(from);
        return;
    }
    asking_.push_back({std::string(from), ++questions_});
    ShowQuestion();
}

std::deque<Invitations::Asking>::iterator Invitations::FindAsking(std::string_view nick) {
    return std::ranges::find(asking_, nick, &Asking::nick);
}

void Invitations::ShowQuestion() {
    window_.ShowJoinQuestion(asking_.empty() ? std::string()
                                             : asking_.front().nick + " is inviting you to a game.");
}

void Invitations::RefuseBusily(std::string_view from) {
    const std::string why = link_.IsOn() ? " is in a game already." : " is negotiating a game.";
    connection_.SendMessage(WriteMessage("refuse", {from, " [Auto] " + nicks_.mine + why}));
    chat_.ShowNotice(std::string(from) + " tried to invite you to a game.");
}

// A game has begun with somebody else.
void Invitations::RefuseAllBusily() {
    for (const Asking& asking : asking_)
        RefuseBusily(asking.nick);
    asking_.clear();
    ShowQuestion();
}

void Invitations::Refuse(std::string_view from) {
    connection_.SendMessage(
        WriteMessage("refuse", {from, " " + nicks_.mine + " has turned down your invitation."}));
    chat_.ShowNotice("You have refused the invitation from " + std::string(from));
}

void Invitations::Accept(std::string_view from) {
    Withdraw();
    connection_.SendMessage(WriteMessage(
        "accept", {from, nicks_.mine, nicks_.mine + " has accepted your invitation. Play may begin."}));
    link_.BeginAsInvited(from);
    chat_.ShowNotice("You have accepted the invitation from " + std::string(from));
    RefuseAllBusily();
}

// It counts while an invitation is unanswered. In a game it is a late answer to another invitation.
void Invitations::TakeRefusal(std::string_view sentence) {
    SetInvited({});
    chat_.ShowNotice(sentence);
}

void Invitations::TakeAcceptance(std::string_view from, std::string_view sentence) {
    if (link_.IsOn() && from == nicks_.opponent)
        return;
    if (link_.IsOn() || from == withdrawn_) {
        // The other program believes to be in a game now, and would wait for a board.
        connection_.SendMessage(WriteMessage("end", {from, nicks_.mine}));
        chat_.ShowNotice(std::string(from) + " has accepted your invitation, but " +
                         (link_.IsOn() ? "you are in a game already." : "you have withdrawn it."));
        withdrawn_.clear();
        return;
    }
    SetInvited({});
    link_.BeginAsInviter(from, sentence);
    RefuseAllBusily();
}

void Invitations::TakeEnd(std::string_view from) {
    if (Drop(from))
        chat_.ShowNotice(std::string(from) + " has withdrawn the invitation.");
    if (!from.empty() && from == invited_) {
        chat_.ShowNotice(invited_ + " does not answer your invitation.");
        SetInvited({});
    }
}

void Invitations::Rename(std::string_view oldNick, std::string_view newNick) {
    if (oldNick.empty())
        return;
    if (invited_ == oldNick)
        SetInvited(newNick);
    if (withdrawn_ == oldNick)
        withdrawn_ = newNick;
    const auto found = FindAsking(oldNick);
    if (found == asking_.end())
        return;
    found->nick = newNick;
    ShowQuestion();
}

void Invitations::Leave(std::string_view nick) {
    if (Drop(nick))
        chat_.ShowNotice(std::string(nick) + " has left; the invitation is gone.");
    if (!nick.empty() && nick == invited_) {
        chat_.ShowNotice(invited_ + " has left without an answer to your invitation.");
        SetInvited({});
    }
}

// False if that person has not invited this user, or has been answered.
bool Invitations::Drop(std::string_view from) {
    const auto found = FindAsking(from);
    if (found == asking_.end())
        return false;
    asking_.erase(found);
    ShowQuestion();
    return true;
}

void Invitations::End() {
    Withdraw();
    asking_.clear();
    ShowQuestion();
}

} // namespace tarveth
