// A lobby without sockets, with a clock that the test moves, and connections whose received text can be read.
#pragma once

#include "server/Lobby.h"

#include <deque>
#include <string>
#include <string_view>

namespace tarveth {

struct TestConnection {
    TestConnection(const ClientAddress& address, const Limits& limits) : session(nullptr, address, limits) {}
    Session session;
    std::optional<std::string> refusal; // why the lobby did not accept the connection
    std::string heard;
};

class TestLobby {
public:
    explicit TestLobby(const Limits& limits = {}, const std::string& messageOfTheDay = {});

    // Connects a client, from an address of its own if none is given.
    TestConnection& Connect();
    TestConnection& Connect(const char* address);
    // Connects a client that completes the handshake. What all clients received so far is forgotten.
    TestConnection& Join(const std::string& nick);
    TestConnection& Join(const std::string& nick, const char* address);
    // Begins a game to which a has invited b.
    void StartGame(TestConnection& a, TestConnection& b);
    void Say(TestConnection& client, std::string_view bytes);
    void Hang(TestConnection& client);
    void Pass(std::chrono::milliseconds time);
    // Gives what the client was sent since the last call, with markers as "@" and line ends as "$".
    std::string Heard(TestConnection& client);
    // Gives the same as Heard, byte for byte.
    std::string TakeBytes(TestConnection& client);
    void ForgetAll();

    Lobby lobby;

private:
    void Deliver();

    TestConnection& Connect(const ClientAddress& address);
    void ShakeHands(TestConnection& client, const std::string& nick);

    std::deque<TestConnection> clients_;
    Time now_ = Time{} + std::chrono::hours(1);
};

} // namespace tarveth
