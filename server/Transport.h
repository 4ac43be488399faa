// Accepts connections, reads, writes and closes them for the lobby, on the one thread that runs the Asio
// loop. The transport composes no text of the protocol: that is the lobby's.
#pragma once

#include "platform/memory.h"
#include "server/Connection.h"
#include "server/Lobby.h"
#include "server/asio.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

struct ListenOptions {
    std::string bindAddress = "127.0.0.1";
    std::uint16_t port = 9090; // 0 for a port that the system chooses
    int keepAliveSeconds = 60; // after which a client that has vanished is noticed
};

class Transport {
public:
    // Begins to listen; throws std::system_error if the address or the port cannot be used.
    Transport(asio::io_context& io, const ListenOptions& listen, const Limits& limits,
              std::string messageOfTheDay);

    // Applies other options while clients are connected. The address and the port stay as they are.
    void Configure(const ListenOptions& listen, const Limits& limits, std::string messageOfTheDay);
    asio::ip::tcp::endpoint Endpoint() const { return acceptor_.local_endpoint(); }
    // Stops listening, tells all clients that the lobby closes, and ends the loop when they have been told.
    void Stop();
    void LogFigures();

private:
    void WaitForClients();
    void AcceptClients();
    void Admit(TcpSocket socket, const asio::ip::address& address);
    bool RefuseForLackOfSockets();
    void Refuse(TcpSocket& socket, const ClientAddress& address, Refusal refusal);

    void WaitToRead(Connection& connection);
    void Read(Connection& connection);
    void WaitToWrite(Connection& connection);
    bool Flush(Connection& connection);
    void FinishOrDrop(Connection& connection, bool sent);
    void DropUnsent(Connection& connection);
    void Drop(Connection& connection, const std::string& reason);
    void FreeWhenIdle(Connection& connection);

    void AfterEvent();
    void GatherAnnouncements();
    void ServeDue();
    void SendAnnouncements();
    void SetTimer();
    void RelieveMemory();
    bool DropSlowest();
    void TrimMemoryLater();

    asio::io_context& io_;
    ListenOptions listen_;
    TcpAcceptor acceptor_;
    TcpSocket
        reserve_; // closed for a moment when no descriptors are left, so as to accept one client and tell it
    asio::steady_timer timer_;
    asio::steady_timer retry_;
    asio::steady_timer trim_;
    platform::MemoryReserve reserveMemory_;
    std::size_t peakMemory_ = 0; // the most that clients held since free memory was returned to the system
    bool trimming_ = false;      // trim_ is set
    Lobby lobby_;
    std::vector<std::unique_ptr<Connection>> connections_;
    std::vector<std::unique_ptr<Connection>> closedConnections_; // freed after the event that closed them
    std::optional<Time> timerTime_;
    std::array<char, std::size_t{64} << 10> scratch_{};
    bool announcing_ = false;       // SendAnnouncements has been posted
    Time announcementTime_{};       // when it was posted first
    Clock::duration lastSending_{}; // how long the last SendAnnouncements took
    std::uint64_t eventsServed_ = 0;
    bool stopping_ = false;
};

} // namespace tarveth
