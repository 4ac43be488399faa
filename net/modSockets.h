// The connection to a lobby server: opening it, and what goes out on it.
#pragma once

#include "engine/NetGame.h"
#include "net/AsyncSocket.h"
#include "net/ClientPorts.h"

#include <string>
#include <string_view>

namespace tarveth {

inline constexpr int kServerPort = 9090;

class modSockets {
public:
    // All outlive the object.
    modSockets(AsyncSocket& socket, NetGame& net, ClientWindowPort& window, ClientPersonPort& person);

    // Asks for a server and begins to connect. False when the person chose none. If connecting can't even
    // begin, the person is told, and no connect event will come.
    bool ConnectToServer();
    // Handles the socket's connect event. False if there is no connection; the person has been told.
    bool Connected();

    // Takes what the data event has brought; a lone carriage return counts as nothing.
    std::string Receive();

    // Sends a message, with the marker in front of it.
    void SendMessage(std::string_view text);
    // Sends the text as it is; the server takes it as general chat.
    void SendRawText(std::string_view text);

private:
    void PrepareSocket();
    void Transmit(std::string text);

    AsyncSocket& socket_;
    NetGame& net_;
    ClientWindowPort& window_;
    ClientPersonPort& person_;
};

} // namespace tarveth
