// The list of all clients, for the operator.
#pragma once

#include "server/Lobby.h"

#include <string>

namespace tarveth {

// Gives a line for each client in UTF-8, with nickname, address, time since the arrival and what the client
// does, below a line of headings.
std::string UserTable(const Lobby& lobby);

} // namespace tarveth
