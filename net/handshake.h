// The first words with a server: it tells its version, and is told this program's and the user's nickname.
#pragma once

#include "net/lobbyusers.h"
#include "net/modSockets.h"
#include "net/nicknames.h"

#include <string_view>

namespace tarveth {

class Handshake {
public:
    // All outlive the object.
    Handshake(modSockets& connection, const Nicknames& nicks, LobbyUsers& users)
        : connection_(connection), nicks_(nicks), users_(users) {}

    // Answers the server's greeting, once, and asks who is there. False, and nothing is sent, if a server of
    // that version is too old.
    bool Answer(std::string_view serverVersion);

private:
    modSockets& connection_;
    const Nicknames& nicks_;
    LobbyUsers& users_;
    bool answered_ = false; // PrevUpdate
};

} // namespace tarveth
