// The line that the user types: to everybody in the lobby, or to the opponent alone.
#pragma once

#include "net/chat.h"
#include "net/gamelink.h"
#include "net/modSockets.h"

#include <string_view>

namespace tarveth {

class InputLine {
public:
    // All outlive the object.
    InputLine(ClientWindowPort& window, modSockets& connection, const Nicknames& nicks, Chat& chat,
              GameLink& link);

    // In private mode a line without a prefix goes to the opponent.
    void SetPrivateMode(bool privateMode);
    bool PrivateMode() const { return privateMode_; }
    // Sends what was typed before Enter.
    void Enter(std::string_view line);

private:
    void SayPrivately(std::string_view text);
    void SayToAll(std::string_view text);

    ClientWindowPort& window_;
    modSockets& connection_;
    const Nicknames& nicks_;
    Chat& chat_;
    GameLink& link_;
    bool privateMode_ = false;
};

} // namespace tarveth
