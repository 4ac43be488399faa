// Invitations and the games that come of them. A game is a pair of users: only they hear each other's moves.
#pragma once

#include "server/Lobby.h"
#include "server/messages.h"

namespace tarveth {

void HandleInvite(Lobby& lobby, Session& inviter, const ClientMessage& message);
void HandleRefuse(Lobby& lobby, Session& invitee, const ClientMessage& message);
void HandleAccept(Lobby& lobby, Session& invitee, const ClientMessage& message);
void HandlePlay(Lobby& lobby, Session& player, const ClientMessage& message);
void HandleEnd(Lobby& lobby, Session& player, const ClientMessage& message);

// The user goes: his game ends, and who waits for his answer is told.
void LeaveGames(Lobby& lobby, Session& user);

} // namespace tarveth
