// One client's socket and session. While nothing goes on it holds no buffer: it waits to be readable, and the
// server then reads into a buffer that all share.
#pragma once

#include "server/Session.h"
#include "server/asio.h"

namespace tarveth {

class Connection {
public:
    Connection(TcpSocket socket, const asio::ip::address& address, const Limits& limits)
        : socket(std::move(socket)), address(address), session(this, limits) {}

    TcpSocket socket;
    asio::ip::address address;
    Session session;
    std::size_t place = 0; // in the server's list of connections
    bool reading = false;  // a wait until it is readable is pending
    bool writing = false;  // one until it is writable
    bool closed = false;   // it is kept until its waits have come back
    bool finished = false; // has been told that nothing more will be sent
};

} // namespace tarveth
