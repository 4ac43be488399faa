#include "net/modSockets.h"

#include "net/framing.h"

#include <utility>

namespace tarveth {

modSockets::modSockets(AsyncSocket& socket, NetGame& net, ClientWindowPort& window, ClientPersonPort& person)
    : socket_(socket), net_(net), window_(window), person_(person) {}

bool modSockets::ConnectToServer() {
    return false;
}

bool modSockets::Connected() {
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
