// The transport: accepts, reads, sends and closes for the lobby, all on the one thread that runs the Asio
// loop.
#pragma once

#include "server/AddressCount.h"
#include "server/Connection.h"
#include "server/Lobby.h"
#include "server/asio.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

struct Reach {
    std::string bind = "127.0.0.1"; // address to listen on
    std::uint16_t port = 9090;      // 0: one that the system chooses
    std::size_t maxClients = 20000;
    std::size_t perAddress = 8; // connections; the own computer's are not counted
};

class Server {
public:
    // Listens from here on; throws std::system_error if it can't.
    Server(asio::io_context& io, const Reach& reach, const Limits& limits, std::string messageOfTheDay);

    asio::ip::tcp::endpoint Endpoint() const { return acceptor_.local_endpoint(); }
    // Takes no more clients, tells those that are there, and ends the loop when they have been told.
    void Stop();
    void LogFigures();

private:
    void WaitForClients();
    void AcceptClients();
    void Admit(TcpSocket socket, const asio::ip::address& address);
    bool RefuseForLackOfSockets();
    void Refuse(TcpSocket& socket, std::string_view why);

    void WaitToRead(Connection& connection);
    void Read(Connection& connection);
    void WaitToWrite(Connection& connection);
    bool Flush(Connection& connection);
    void FinishOrDrop(Connection& connection, bool sent);
    void Drop(Connection& connection);
    void Bury(Connection& connection);

    void AfterEvent();
    void GatherAnnouncements();
    void ServeDue();
    void SendAnnouncements();
    void SetAlarm();
    void CloseAll();

    asio::io_context& io_;
    TcpAcceptor acceptor_;
    TcpSocket reserve_; // given up for a moment to tell a client that there are no sockets left
    asio::steady_timer alarm_;
    asio::steady_timer retry_;
    Reach reach_;
    AddressCount addresses_;
    Lobby lobby_;
    std::vector<std::unique_ptr<Connection>> connections_;
    std::vector<std::unique_ptr<Connection>> graves_; // closed, but perhaps in use further up the stack
    std::optional<Time> alarmTime_;
    std::array<char, std::size_t{64} << 10> scratch_{};
    bool announcing_ = false; // SendAnnouncements is on its way
    Time announcementTime_{}; // since when
    Clock::duration lastSending_{};
    std::uint64_t eventsServed_ = 0;
    bool stopping_ = false;
};

} // namespace tarveth
