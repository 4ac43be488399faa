#include "tests/server/TestLobby.h"

#include <utility>

namespace tarveth {

TestLobby::TestLobby(const Limits& limits, const std::string& messageOfTheDay)
    : lobby(limits, messageOfTheDay) {}

TestClient& TestLobby::Connect() {
    TestClient& client = clients_.emplace_back(lobby.Bounds());
    lobby.Enter(client.session, now_);
    return client;
}

TestClient& TestLobby::Join(const std::string& nick) {
    TestClient& client = Connect();
    Say(client, "\251clientver(2.6.4)\251nick(" + nick + ")\251sendnicks()");
    ForgetAll();
    return client;
}

void TestLobby::StartGame(TestClient& a, TestClient& b) {
    Say(a, "\251invite(" + b.session.nick + "," + a.session.nick + ")");
    Say(b, "\251accept(" + a.session.nick + "," + b.session.nick + ", " + b.session.nick + " accepts)");
    ForgetAll();
}

void TestLobby::Say(TestClient& client, std::string_view bytes) {
    lobby.Receive(client.session, bytes, now_);
}

void TestLobby::Hang(TestClient& client) {
    lobby.Leave(client.session);
}

void TestLobby::Pass(std::chrono::milliseconds time) {
    now_ += time;
    lobby.Wake(now_);
}

std::string TestLobby::TakeBytes(TestClient& client) {
    Deliver();
    return std::exchange(client.heard, {});
}

std::string TestLobby::Heard(TestClient& client) {
    std::string shown;
    for (const char c : TakeBytes(client))
        if (c != '\r')
            shown += c == kMarker ? '@' : c == '\n' ? '$' : c;
    return shown;
}

void TestLobby::ForgetAll() {
    Deliver();
    for (TestClient& client : clients_)
        client.heard.clear();
}

void TestLobby::Deliver() {
    for (TestClient& client : clients_) {
        Outbox& box = client.session.box;
        while (lobby.Out().Unsent(box) > 0) {
            std::size_t size = 0;
            for (const std::string_view part : lobby.Out().Pending(box, 2)) {
                client.heard += part;
                size += part.size();
            }
            lobby.Out().Sent(box, size);
        }
    }
    lobby.Out().EndTurn();
    lobby.TakeDue();
}

} // namespace tarveth
