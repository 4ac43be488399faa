// What happens when a client asks for a nickname, and when one comes back that was cut off.
#pragma once

#include "server/Lobby.h"

#include <string_view>

namespace tarveth {

// Gives the session the wanted nickname, or the most similar free one, and announces it. Where another
// connection of the same address has the nickname, it is found out whether that one is broken.
void TakeNickname(Lobby& lobby, Session& session, std::string_view wanted);

// Gives the nickname of a user whose connection has ended to the newcomer of the same address who has asked
// for it, if there is one.
void GiveNicknameBack(Lobby& lobby, const Session& gone);

} // namespace tarveth
