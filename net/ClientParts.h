// What network play works on besides its own window. All of it outlives every visit to a lobby.
#pragma once

#include "engine/NetGame.h"
#include "engine/modMAIN.h"

#include <functional>
#include <string>

namespace tarveth {

struct ClientParts {
    Game& game;
    NetGame& net;
    std::string& nickname; // the one that the settings keep, in UTF-8; it changes with the user's
    modMAIN& main;
    MainWindowPort& mainWindow;
    std::function<void()> newUserSound; // played for everybody who arrives
};

} // namespace tarveth
