// A socket that goes nowhere: it writes down what is asked of it, and a test makes its events happen.
#pragma once

#include "net/AsyncSocket.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarveth {

class FakeSocket : public AsyncSocket {
public:
    std::vector<std::string> calls;           // "CreateSocket", "Connect host:port", in their order
    std::vector<std::string> sent;            // the text of every Send, in its order
    std::optional<SocketError> createFailure; // what CreateSocket throws
    std::optional<SocketError> failure;       // what Connect throws

    void CreateSocket() override {
        calls.emplace_back("CreateSocket");
        if (createFailure)
            throw SocketError(*createFailure);
    }
    void Connect() override {
        calls.push_back("Connect " + RemoteHost + ':' + std::to_string(RemotePort));
        if (failure)
            throw SocketError(*failure);
    }
    void Send() override { sent.push_back(SendBuffer); }
    std::string Receive() override { return std::exchange(received_, {}); }
    std::string PeerAddress() const override { return peer_; }

    // The events. One that nobody listens to is lost.
    void TellConnected(std::string_view peer = "127.0.0.1") {
        peer_ = peer;
        Tell(ConnectEvent);
    }
    void TellNotConnected() { TellConnected(kNoPeer); }
    void TellData(std::string_view bytes) {
        received_ += bytes;
        Tell(DataArrivalEvent);
    }
    void TellClose() { Tell(CloseEvent); }

    // Everything sent so far, which is forgotten.
    std::string TakeSent() {
        std::string all;
        for (const std::string& text : std::exchange(sent, {}))
            all += text;
        return all;
    }

private:
    // A copy, since a handler may let go of the socket or put another handler in its place.
    static void Tell(std::function<void()> event) {
        if (const auto handler = std::move(event))
            handler();
    }

    std::string peer_{kNoPeer};
    std::string received_;
};

} // namespace tarveth
