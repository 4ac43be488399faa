#include "net/modSockets.h"

#include "net/wire/framing.h"

#include <utility>

namespace tarveth {

modSockets::modSockets(AsyncSocket& socket, NetGame& net, ClientWindowPort& window, ClientPersonPort& person)
    : socket_(socket), net_(net), window_(window), person_(person) {}

bool modSockets::ConnectToServer() {
    socket_.RemoteHost = person_.AskServer();
    net_.NetConnected = !socket_.RemoteHost.empty();
    if (!net_.NetConnected)
        return false;
    net_.PlayingBlue = true;
    PrepareSocket();
    try {
        socket_.CreateSocket();
        socket_.Connect();
    } catch (const SocketError& error) {
        if (error.Number() != kWouldBlock) {
            person_.ShowMessageBox(error.what(), {}, BoxIcon::None);
            return true;
        }
    }
    window_.ShowWaiting(true);
    return true;
}

void modSockets::PrepareSocket() {
    socket_.RemotePort = kServerPort;
    socket_.LocalAddress = "0.0.0.0";
    socket_.LocalPort = 0;
}

bool modSockets::Connected() {
    window_.ShowWaiting(false);
    if (socket_.PeerAddress() != kNoPeer)
        return true;
    person_.ShowMessageBox("Could not connect.", {}, BoxIcon::None);
    return false;
}

std::string modSockets::Receive() {
    std::string text = socket_.Receive();
    return text == "\r" ? std::string() : text;
}

void modSockets::SendMessage(std::string_view text) {
    Transmit(kMarker + std::string(text));
}

void modSockets::SendRawText(std::string_view text) {
    Transmit(std::string(text));
}

void modSockets::Transmit(std::string text) {
    socket_.SendBuffer = std::move(text);
    socket_.Send();
}

} // namespace tarveth
