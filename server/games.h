// Invitations, and the games that follow from them. A game is a pair of users who receive each other's moves.
#pragma once

#include "server/Lobby.h"
#include "server/messages.h"

namespace tarveth {

void HandleInvite(Lobby& lobby, Session& inviter, const ClientMessage& message);
void HandleRefuse(Lobby& lobby, Session& invitee, const ClientMessage& message);
void HandleAccept(Lobby& lobby, Session& invitee, const ClientMessage& message);
void HandlePlay(Lobby& lobby, Session& player, const ClientMessage& message);
void HandleEnd(Lobby& lobby, Session& player, const ClientMessage& message);

// Lets the moves of the player's partner go on to name the player by this nickname.
void KeepFormerNick(Session& player, const std::string& nick);

// Ends the game of a user who leaves, and tells the users who wait for an answer to their invitations.
void LeaveGames(Lobby& lobby, Session& user);

} // namespace tarveth
