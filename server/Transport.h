// Reads, writes and closes connections for the lobby, on the one thread that runs the Asio loop. The
// transport composes no text of the protocol: that is the lobby's.
#pragma once

#include "platform/memory.h"
#include "server/Chores.h"
#include "server/Connection.h"
#include "server/Listener.h"
#include "server/Lobby.h"
#include "server/ProxyGate.h"
#include "server/RefusalLog.h"
#include "server/asio.h"

#include <array>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

struct ListenOptions {
    std::string bindAddress = "127.0.0.1";
    std::uint16_t port = 9090;         // 0 for a port that the system chooses
    int keepAliveSeconds = 60;         // after which a client that has vanished is noticed
    std::vector<AddressRange> proxies; // whose connections begin with the header of the PROXY protocol
};

class Transport : private Arrivals {
public:
    // Begins to listen; throws std::system_error if the address or the port cannot be used.
    Transport(asio::io_context& io, const ListenOptions& listen, Lobby& lobby);

    // Applies other options while clients are connected. The address and the port stay as they are.
    void Configure(const ListenOptions& listen);
    asio::ip::tcp::endpoint Endpoint() const { return listener_.Endpoint(); }
    // Sends what the lobby has to say after something other than a client has acted on it.
    void ServeLobby() { AfterEvent(); }
    // Stops listening, tells all clients that the lobby closes, and ends the loop when they have been told.
    void Stop();

private:
    void Arrive(TcpSocket socket, const ClientAddress& address) override;
    void ArriveWithoutRoom(TcpSocket& socket, const ClientAddress& address) override;
    void ApplyProxyRules();
    void Admit(TcpSocket socket, const ClientAddress& address, std::string_view received);
    void Refuse(TcpSocket& socket, const ClientAddress& address, const std::string& sentence);

    void WaitToRead(Connection& connection);
    void ReadInTurn(Connection& connection);
    bool ReadNextLate();
    void Read(Connection& connection, std::size_t most);
    void WaitToWrite(Connection& connection);
    bool Flush(Connection& connection);
    void FinishOrDrop(Connection& connection, bool sent);
    void DropUnsent(Connection& connection);
    void Drop(Connection& connection, const std::string& reason);
    void FreeWhenIdle(Connection& connection);

    void AfterEvent();
    void ServeDue();
    void BeginAnnouncing();
    bool AnnounceToNext();
    void SetTimer();
    void RelieveMemory();
    bool DropSlowest();
    void TrimMemoryLater();

    asio::io_context& io_;
    ListenOptions listen_;
    Lobby& lobby_;
    RefusalLog refusals_;
    Chores chores_;
    Listener listener_;
    ProxyGate proxyGate_;
    asio::steady_timer timer_;
    asio::steady_timer shutdown_;
    asio::steady_timer trim_;
    platform::MemoryReserve reserveMemory_;
    std::size_t peakMemory_ = 0; // the most that clients held since free memory was returned to the system
    bool trimming_ = false;      // trim_ is set
    std::vector<std::unique_ptr<Connection>> connections_;
    std::vector<std::unique_ptr<Connection>> closedConnections_; // freed after the event that closed them
    std::optional<Time> timerTime_;
    std::array<char, std::size_t{64} << 10> scratch_{};
    std::deque<Connection*> late_;       // which can be read from, and are when there is time
    bool announcing_ = false;            // AnnounceToNext is a chore
    std::uint64_t announcementsEnd_ = 0; // up to which everybody is sent the announcements this time
    std::size_t unannounced_ = 0;        // the users before this index have not been looked at for it
    bool stopping_ = false;
};

} // namespace tarveth
