#include "server/games.h"

#include "net/wire/nickname.h"
#include "net/wire/plaintext.h"
#include "server/wording.h"

#include <algorithm>

namespace tarveth {

namespace {

// How many unanswered invitations a user may have made; one more takes the place of the oldest.
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

// Gives the user of that nickname if they have invited the invitee, else null.
Session* FindInviter(Lobby& lobby, const Session& invitee, std::string_view nick) {
    Session* inviter = lobby.FindUser(nick);
    return std::ranges::find(invitee.invitedBy, inviter) == invitee.invitedBy.end() ? nullptr : inviter;
}

// Sends the inviter a refusal that the lobby gives in place of the invited user.
void RefuseFor(Lobby& lobby, Session& inviter, std::string_view nick, std::string_view reason) {
    lobby.Send(inviter, {kMarkerText, "refuse(", inviter.nick, ", ", nick, reason, ")"});
}

// The invitations that both have made end here, so that no user in a game has one open.
void StartGame(Lobby& lobby, Session& inviter, Session& invitee) {
    ForgetInvitationsOf(inviter);
    ForgetInvitationsOf(invitee);
    inviter.partner = &invitee;
    invitee.partner = &inviter;
    ++lobby.Counts().games;
    lobby.StatusChanged(inviter);
    lobby.StatusChanged(invitee);
}

// Ends the player's game and tells their partner. The caller announces the player's own status.
void EndGame(Lobby& lobby, Session& player) {
    Session& partner = *player.partner;
    player.partner = nullptr;
    partner.partner = nullptr;
    player.formerNick.clear();
    partner.formerNick.clear();
    --lobby.Counts().games;
    lobby.Send(partner, {kMarkerText, "end(", partner.nick, ",", player.nick, ")"});
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
        lobby.Send(*invitee, {kMarkerText, "invite(", invitee->nick, ",", inviter.nick, ")"});
    }
}

void HandleRefuse(Lobby& lobby, Session& invitee, const ClientMessage& message) {
    Session* inviter = FindInviter(lobby, invitee, message.fields[0]);
    if (inviter == nullptr) {
        ++lobby.Counts().dropped;
        return;
    }
    ForgetInvitation(*inviter, invitee);
    lobby.Send(*inviter, {kMarkerText, "refuse(", inviter->nick, ", ",
                          SignedSentence(message.fields[1], invitee.nick), ")"});
}

void HandleAccept(Lobby& lobby, Session& invitee, const ClientMessage& message) {
    if (invitee.partner != nullptr) {
        lobby.Tell(invitee, "You are in a game already.");
        return;
    }
    Session* inviter = FindInviter(lobby, invitee, message.fields[0]);
    if (inviter == nullptr) {
        // The accepting program has begun a game by itself, which has to be ended.
        lobby.Send(invitee, {kMarkerText, "end(", invitee.nick, ",", BalancedLine(message.fields[0]), ")"});
        lobby.Tell(invitee, "That invitation does not stand any more.");
        return;
    }
    lobby.Send(*inviter, {kMarkerText, "accept(", inviter->nick, ",", invitee.nick, ",",
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
        lobby.Send(*partner, {kMarkerText, message.whole});
    else
        lobby.Send(*partner, {kMarkerText, "play(", partner->nick, ",", message.fields[1], ")"});
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
        RefuseFor(lobby, *inviter, user.nick, " has left.");
    }
    user.invitedBy.clear();
}

} // namespace tarveth
