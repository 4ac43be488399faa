#include "server/games.h"

#include "net/wire/nickname.h"
#include "net/wire/plaintext.h"
#include "server/wording.h"

#include <algorithm>

namespace tarveth {

namespace {

// A user has so many unanswered invitations; a further one takes the place of the first.
constexpr std::size_t kMostInvitations = 16;

void ForgetInvitation(Session& inviter, Session& invitee) {
    std::erase(inviter.invited, &invitee);
    std::erase(invitee.invitedBy, &inviter);
}

void ForgetInvitationsOf(Session& inviter) {
    for (Session* invitee : inviter.invited)
        std::erase(invitee->invitedBy, &inviter);
    inviter.invited.clear();
}

void RecordInvitation(Session& inviter, Session& invitee) {
    ForgetInvitation(inviter, invitee);
    if (inviter.invited.size() == kMostInvitations)
        ForgetInvitation(inviter, *inviter.invited.front());
    inviter.invited.push_back(&invitee);
    invitee.invitedBy.push_back(&inviter);
}

// Null if that user has not invited him.
Session* FindInviter(Lobby& lobby, const Session& invitee, std::string_view nick) {
    Session* inviter = lobby.FindUser(nick);
    return std::ranges::find(invitee.invitedBy, inviter) == invitee.invitedBy.end() ? nullptr : inviter;
}

// The answer that an inviter's program waits for, when the invitee cannot or will not give it.
void RefuseFor(Lobby& lobby, Session& inviter, std::string_view nick, std::string_view reason) {
    lobby.Send(inviter, {"\251refuse(", inviter.nick, ", ", nick, reason, ")"});
}

void StartGame(Lobby& lobby, Session& inviter, Session& invitee) {
    ForgetInvitationsOf(inviter);
    ForgetInvitationsOf(invitee);
    inviter.partner = &invitee;
    invitee.partner = &inviter;
    ++lobby.Counts().games;
    lobby.StatusChanged(inviter);
    lobby.StatusChanged(invitee);
}

// The player's partner is told; both are free again. The player's own status is his to announce.
void EndGame(Lobby& lobby, Session& player) {
    Session& partner = *player.partner;
    player.partner = nullptr;
    partner.partner = nullptr;
    player.formerNick.clear();
    partner.formerNick.clear();
    --lobby.Counts().games;
    lobby.Send(partner, {"\251end(", partner.nick, ",", player.nick, ")"});
    lobby.StatusChanged(partner);
}

bool Names(std::string_view nick, const Session& partner) {
    return nick == partner.nick || FoldCase(nick) == FoldCase(partner.nick) ||
           (!partner.formerNick.empty() && FoldCase(nick) == FoldCase(partner.formerNick));
}

} // namespace

void HandleInvite(Lobby& lobby, Session& inviter, const ClientMessage& message) {
    if (inviter.partner != nullptr) {
        lobby.Tell(inviter, "You are in a game already.");
        return;
    }
    Session* invitee = lobby.FindUser(message.fields[0]);
    if (invitee == nullptr) {
        RefuseFor(lobby, inviter, BalancedLine(message.fields[0]), " is not here.");
    } else if (invitee == &inviter) {
        RefuseFor(lobby, inviter, "You can't invite yourself to a game.", "");
    } else if (lobby.Ignores(*invitee, inviter)) {
        RefuseFor(lobby, inviter, invitee->nick, " has turned down your invitation.");
    } else {
        RecordInvitation(inviter, *invitee);
        lobby.Send(*invitee, {"\251invite(", invitee->nick, ",", inviter.nick, ")"});
    }
}

void HandleRefuse(Lobby& lobby, Session& invitee, const ClientMessage& message) {
    Session* inviter = FindInviter(lobby, invitee, message.fields[0]);
    if (inviter == nullptr) {
        ++lobby.Counts().dropped;
        return;
    }
    ForgetInvitation(*inviter, invitee);
    // Whoever plays by now no longer waits for it, and his program would take it for the end of the game.
    if (inviter->partner == nullptr)
        lobby.Send(*inviter, {"\251refuse(", inviter->nick, ", ",
                              SignedSentence(message.fields[1], invitee.nick), ")"});
}

void HandleAccept(Lobby& lobby, Session& invitee, const ClientMessage& message) {
    if (invitee.partner != nullptr) {
        lobby.Tell(invitee, "You are in a game already.");
        return;
    }
    Session* inviter = FindInviter(lobby, invitee, message.fields[0]);
    if (inviter == nullptr) {
        // His program believes to be in a game now.
        lobby.Send(invitee, {"\251end(", invitee.nick, ",", BalancedLine(message.fields[0]), ")"});
        lobby.Tell(invitee, "That invitation does not stand any more.");
        return;
    }
    ForgetInvitation(*inviter, invitee);
    lobby.Send(*inviter, {"\251accept(", inviter->nick, ",", invitee.nick, ",",
                          SignedSentence(message.fields[2], invitee.nick), ")"});
    StartGame(lobby, *inviter, invitee);
}

void HandlePlay(Lobby& lobby, Session& player, const ClientMessage& message) {
    Session* partner = player.partner;
    if (partner == nullptr || !Names(message.fields[0], *partner)) {
        ++lobby.Counts().dropped;
        return;
    }
    ++lobby.Counts().moves;
    if (message.fields[0] == partner->nick)
        lobby.Send(*partner, {"\251", message.whole});
    else
        lobby.Send(*partner, {"\251play(", partner->nick, ",", message.fields[1], ")"});
}

void HandleEnd(Lobby& lobby, Session& player, const ClientMessage& message) {
    if (player.partner != nullptr && Names(message.fields[0], *player.partner)) {
        EndGame(lobby, player);
        lobby.StatusChanged(player);
        return;
    }
    Session* invitee = lobby.FindUser(message.fields[0]);
    if (invitee != nullptr)
        ForgetInvitation(player, *invitee);
}

void LeaveGames(Lobby& lobby, Session& user) {
    if (user.partner != nullptr)
        EndGame(lobby, user);
    ForgetInvitationsOf(user);
    for (Session* inviter : user.invitedBy) {
        std::erase(inviter->invited, &user);
        if (inviter->partner == nullptr)
            RefuseFor(lobby, *inviter, user.nick, " has left.");
    }
    user.invitedBy.clear();
}

} // namespace tarveth
