// A socket on real connections of this computer, and what it has told its owner.
#pragma once

#include "tests/net/OwnerQueue.h"
#include "tests/net/PlainPeer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace tarveth {

inline constexpr std::size_t kMebibyte = std::size_t{1} << 20;

// Bytes of which no stretch looks like another one near it.
inline std::string Bytes(std::size_t size) {
    std::string bytes(size, 0);
    unsigned number = 1;
    for (char& c : bytes) {
        number = number * 1664525 + 1013904223;
        c = static_cast<char>(number >> 24);
    }
    return bytes;
}

using Events = std::vector<std::string>;

struct LoopbackSocket : testing::Test {
    OwnerQueue owner;
    PlainListener listener;
    std::unique_ptr<AsyncSocket> socket;
    Events events;
    std::string text; // received in the events

    LoopbackSocket() { MakeSocket(); }

    void MakeSocket(int connectSeconds = kConnectSeconds) {
        socket = CreateAsyncSocket(owner.Post(), connectSeconds);
        socket->ConnectEvent = [this] { events.emplace_back("connect"); };
        socket->DataArrivalEvent = [this] {
            events.emplace_back("data");
            text += socket->Receive();
        };
        socket->CloseEvent = [this] { events.emplace_back("close"); };
    }

    void BeginToConnect(const std::string& host, int port) {
        socket->RemoteHost = host;
        socket->RemotePort = port;
        socket->CreateSocket();
        socket->Connect();
    }

    bool HasTold(const std::string& event) {
        return owner.RunUntil([&] { return !events.empty() && events.back() == event; });
    }

    PlainPeer Connect() {
        BeginToConnect("127.0.0.1", listener.Port());
        PlainPeer peer = listener.Accept();
        EXPECT_TRUE(HasTold("connect"));
        return peer;
    }

    void Send(const std::string& bytes) {
        socket->SendBuffer = bytes;
        socket->Send();
    }
};

} // namespace tarveth
