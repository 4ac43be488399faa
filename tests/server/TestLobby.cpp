#include "tests/server/TestLobby.h"

#include <utility>

namespace tarveth {

TestLobby::TestLobby(const Limits& limits, const std::string& messageOfTheDay)
    : lobby(limits, messageOfTheDay) {}

TestConnection& TestLobby::Connect() {
    ClientAddress address = *ParseAddress("10.0.0.0");
    address.bytes[14] = static_cast<std::uint8_t>(clients_.size() / 250);
    address.bytes[15] = static_cast<std::uint8_t>(clients_.size() % 250);
    return Connect(address);
}

TestConnection& TestLobby::Connect(const char* address) {
    return Connect(*ParseAddress(address));
}

TestConnection& TestLobby::Connect(const ClientAddress& address) {
    TestConnection& client = clients_.emplace_back(address, lobby.Bounds());
    client.refusal = lobby.Enter(client.session, now_);
    return client;
}

TestConnection& TestLobby::Join(const std::string& nick) {
    TestConnection& client = Connect();
    ShakeHands(client, nick);
    return client;
}

TestConnection& TestLobby::Join(const std::string& nick, const char* address) {
    TestConnection& client = Connect(address);
    ShakeHands(client, nick);
    return client;
}

void TestLobby::ShakeHands(TestConnection& client, const std::string& nick) {
    Say(client, "\251clientver(2.6.4)\251nick(" + nick + ")\251sendnicks()");
    ForgetAll();
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
    lobby.Out().ForgetAnnouncements(lobby.Out().AnnouncementsEnd());
    lobby.TakeDue();
}

} // namespace tarveth
