// A lobby without sockets and without a clock of its own, and clients whose texts can be read.
#pragma once

#include "server/Lobby.h"

#include <deque>
#include <string>
#include <string_view>

namespace tarveth {

struct TestClient {
    explicit TestClient(const Limits& limits) : session(nullptr, limits) {}
    Session session;
    std::string heard;
};

class TestLobby {
public:
    explicit TestLobby(const Limits& limits = {}, const std::string& messageOfTheDay = {});

    TestClient& Connect();
    // One that has shaken hands, and whom everybody has been told of; nobody has anything unread.
    TestClient& Join(const std::string& nick);
    // Two that play each other, a having invited b.
    void StartGame(TestClient& a, TestClient& b);
    void Say(TestClient& client, std::string_view bytes);
    void Hang(TestClient& client);
    void Pass(std::chrono::milliseconds time);
    // What the client was sent since the last time, markers as "@", line ends as "$".
    std::string Heard(TestClient& client);
    // The same as it goes over the wire.
    std::string TakeBytes(TestClient& client);
    void ForgetAll();

    Lobby lobby;

private:
    void Deliver();

    std::deque<TestClient> clients_;
    Time now_ = Time{} + std::chrono::hours(1);
};

} // namespace tarveth
