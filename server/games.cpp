#include "server/games.h"

#include "net/wire/nickname.h"
#include "net/wire/plaintext.h"
#include "server/wording.h"
#include "text/foldcase.h"

#include <algorithm>

namespace tarveth {

namespace {

// The nicknames of a player before renames in the game, by which the partner's moves may still name them.
// Renames are rare enough that the oldest of more than these is no longer under way.
constexpr std::size_t kMostFormerNicks = 16;

bool SameNick(std::string_view a, std::string_view b) {
    return a == b || FoldCase(a) == FoldCase(b);
}

void EraseInvitation(std::vector<Invitation>& list, const Session& other) {
    std::erase_if(list, [&other](const Invitation& invitation) { return invitation.other == &other; });
}

void ForgetInvitation(Session& inviter, Session& invitee) {
    EraseInvitation(inviter.invited, invitee);
    EraseInvitation(invitee.invitedBy, inviter);
}

void ForgetInvitationsOf(Session& inviter) {
    for (const Invitation& invitation : inviter.invited)
        EraseInvitation(invitation.other->invitedBy, inviter);
    inviter.invited.clear();
}

void RecordInvitation(const Lobby& lobby, Session& inviter, Session& invitee) {
    if (inviter.invited.size() >= lobby.Bounds().openInvitations)
        ForgetInvitation(inviter, *inviter.invited.front().other);
    inviter.invited.push_back({&invitee, inviter.nick, invitee.nick});
    invitee.invitedBy.push_back({&inviter, inviter.nick, invitee.nick});
}

// Finds the oldest invitation in which the other user had that nickname, else the one whose other user has it
// now; null if there is neither. A user who has renamed since the invitation is still named as in it.
const Invitation* FindInvitation(const std::vector<Invitation>& list, std::string Invitation::*name,
                                 std::string_view nick) {
    auto found = std::ranges::find_if(
        list, [&](const Invitation& invitation) { return SameNick(invitation.*name, nick); });
    if (found == list.end())
        found = std::ranges::find_if(
            list, [&](const Invitation& invitation) { return SameNick(invitation.other->nick, nick); });
    return found == list.end() ? nullptr : &*found;
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
    player.formerNicks.clear();
    partner.formerNicks.clear();
    --lobby.Counts().games;
    lobby.Send(partner, {kMarkerText, "end(", partner.nick, ",", player.nick, ")"});
    lobby.StatusChanged(partner);
}

bool Names(std::string_view nick, const Session& partner) {
    return SameNick(nick, partner.nick) ||
           std::ranges::any_of(partner.formerNicks,
                               [nick](const std::string& former) { return SameNick(nick, former); });
}

// A nickname of a message, which may be any text, as it may stand in another message.
std::string NicknameInMessage(std::string_view field) {
    return BalancedLine(field.substr(0, kLongestNickname));
}

} // namespace

void HandleInvite(Lobby& lobby, Session& inviter, const ClientMessage& message) {
    if (inviter.partner != nullptr) {
        lobby.Tell(inviter, "You are in a game already.");
        return;
    }
    if (!lobby.Allow(inviter, &Allowances::invitations, lobby.Bounds().invitations, 1)) {
        RefuseFor(lobby, inviter, "You invite too often. Please wait a minute.", "");
        lobby.CountDropped(inviter);
        return;
    }
    Session* invitee = lobby.FindUser(message.fields[0]);
    if (invitee == nullptr) {
        RefuseFor(lobby, inviter, NicknameInMessage(message.fields[0]), " is not here.");
    } else if (invitee == &inviter) {
        RefuseFor(lobby, inviter, "You can't invite yourself to a game.", "");
    } else if (IgnoreLists::Ignores(*invitee, inviter)) {
        RefuseFor(lobby, inviter, invitee->nick, " has turned down your invitation.");
    } else if (std::ranges::find(inviter.invited, invitee, &Invitation::other) != inviter.invited.end()) {
        lobby.Tell(inviter, invitee->nick + " has not answered your first invitation yet.");
    } else {
        RecordInvitation(lobby, inviter, *invitee);
        lobby.Send(*invitee, {kMarkerText, "invite(", invitee->nick, ",", inviter.nick, ")"});
    }
}

void HandleRefuse(Lobby& lobby, Session& invitee, const ClientMessage& message) {
    const Invitation* invitation = FindInvitation(invitee.invitedBy, &Invitation::inviter, message.fields[0]);
    if (invitation == nullptr) {
        lobby.CountDropped(invitee);
        return;
    }
    Session& inviter = *invitation->other;
    ForgetInvitation(inviter, invitee);
    lobby.Send(inviter, {kMarkerText, "refuse(", inviter.nick, ", ",
                         SignedSentence(message.fields[1], invitee.nick), ")"});
}

void HandleAccept(Lobby& lobby, Session& invitee, const ClientMessage& message) {
    if (invitee.partner != nullptr) {
        lobby.Tell(invitee, "You are in a game already.");
        return;
    }
    const Invitation* invitation = FindInvitation(invitee.invitedBy, &Invitation::inviter, message.fields[0]);
    if (invitation == nullptr) {
        // The accepting program has begun a game by itself, which has to be ended.
        lobby.Send(invitee,
                   {kMarkerText, "end(", invitee.nick, ",", NicknameInMessage(message.fields[0]), ")"});
        lobby.Tell(invitee, "That invitation does not stand any more.");
        return;
    }
    Session& inviter = *invitation->other;
    KeepFormerNick(inviter, invitation->inviter);
    ForgetInvitation(inviter, invitee);
    lobby.Send(inviter, {kMarkerText, "accept(", inviter.nick, ",", invitee.nick, ",",
                         SignedSentence(message.fields[2], invitee.nick), ")"});
    StartGame(lobby, inviter, invitee);
}

void HandlePlay(Lobby& lobby, Session& player, const ClientMessage& message) {
    Session* partner = player.partner;
    if (partner == nullptr || !Names(message.fields[0], *partner)) {
        lobby.CountDropped(player);
        return;
    }
    ++lobby.Counts().moves;
    // Receivers do not use their own nickname in the message. Where the new nickname would make the message
    // longer than a client takes, the one that the sender has used stays in it.
    constexpr std::string_view kPlayForm = "play(,)";
    const std::size_t size = kPlayForm.size() + partner->nick.size() + message.fields[1].size();
    if (message.fields[0] == partner->nick || size > kLongestMessage)
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
    const Invitation* own = FindInvitation(player.invited, &Invitation::invitee, message.fields[0]);
    if (own == nullptr)
        return;
    Session& invitee = *own->other;
    ForgetInvitation(player, invitee);
    // The invited user's program closes its question.
    lobby.Send(invitee, {kMarkerText, "end(", invitee.nick, ",", player.nick, ")"});
}

void KeepFormerNick(Session& player, const std::string& nick) {
    if (player.formerNicks.size() == kMostFormerNicks)
        player.formerNicks.erase(player.formerNicks.begin());
    player.formerNicks.push_back(nick);
}

void LeaveGames(Lobby& lobby, Session& user) {
    if (user.partner != nullptr)
        EndGame(lobby, user);
    ForgetInvitationsOf(user);
    for (const Invitation& invitation : user.invitedBy) {
        EraseInvitation(invitation.other->invited, user);
        RefuseFor(lobby, *invitation.other, user.nick, " has left.");
    }
    user.invitedBy.clear();
}

} // namespace tarveth
