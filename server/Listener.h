// Accepts connections on one address and port, and hands each to its owner. A reserve descriptor serves to
// accept and refuse a client when none is left.
#pragma once

#include "server/Chores.h"
#include "server/ClientAddress.h"
#include "server/asio.h"

#include <cstdint>
#include <string>

namespace tarveth {

// What the owner of a listener does with those who arrive.
class Arrivals {
public:
    virtual ~Arrivals() = default;
    virtual void Arrive(TcpSocket socket, const ClientAddress& address) = 0;
    // There is no descriptor to serve this client by. The socket is closed after the call.
    virtual void ArriveWithoutRoom(TcpSocket& socket, const ClientAddress& address) = 0;
};

class Listener {
public:
    // Begins to listen; throws std::system_error if the address or the port cannot be used. "::" serves IPv4
    // as well, and serves it alone on a system without IPv6.
    // port: 0 for one that the system chooses.
    Listener(asio::io_context& io, const std::string& address, std::uint16_t port, Arrivals& arrivals,
             Chores& chores);

    asio::ip::tcp::endpoint Endpoint() const { return acceptor_.local_endpoint(); }
    void Close();

private:
    void Wait();
    bool AcceptOne();
    bool AcceptWithoutRoom();

    asio::io_context& io_;
    Arrivals& arrivals_;
    Chores& chores_;
    TcpAcceptor acceptor_;
    TcpSocket reserve_; // closed for a moment when no descriptors are left
    asio::steady_timer retry_;
};

} // namespace tarveth
