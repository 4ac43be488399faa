#include "tests/server/TestLobby.h"

#include <utility>

namespace tarveth {

TestLobby::TestLobby(const Limits& limits, const std::string& messageOfTheDay)
    : lobby(limits, messageOfTheDay) {}

TestConnection& TestLobby::Connect() {
    TestConnection& client = clients_.emplace_back(lobby.Bounds());
    lobby.Enter(client.session, now_);
    return client;
}

TestConnection& TestLobby::Join(const std::string& nick) {
    TestConnection& client = Connect();
    Say(client, "\251clientver(2.6.4)\251nick(" + nick + ")\251sendnicks()");
    ForgetAll();
    return client;
}

void TestLobby::StartGame(TestConnection& a, TestConnection& b) {
    Say(a, "\251invite(" + b.session.nick + "," + a.session.nick + ")");
    Say(b, "\251accept(" + a.session.nick + "," + b.session.nick + ", " + b.session.nick + " accepts)");
    ForgetAll();
}

void TestLobby::Say(TestConnection& client, std::string_view bytes) {
    lobby.Receive(client.session, bytes, now_);
}

void TestLobby::Hang(TestConnection& client) {
    lobby.Leave(client.session);
}

void TestLobby::Pass(std::chrono::milliseconds time) {
    now_ += time;
    lobby.RunTimers(now_);
}

std::string TestLobby::TakeBytes(TestConnection& client) {
    Deliver();
    return std::exchange(client.heard, {});
}

std::string TestLobby::Heard(TestConnection& client) {
    std::string shown;
    for (const char c : TakeBytes(client))
        if (c != '\r')
            shown += c == kMarker ? '@' : c == '\n' ? '$' : c;
    return shown;
}

void TestLobby::ForgetAll() {
    Deliver();
    for (TestConnection& client : clients_)
        client.heard.clear();
}

void TestLobby::Deliver() {
    for (TestConnection& client : clients_) {
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
