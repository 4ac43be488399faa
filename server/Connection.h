// One client's socket and session. A connection has no read buffer: it waits until it is readable, and the
// transport then reads into a buffer that all connections share.
#pragma once

#include "server/Session.h"
#include "server/asio.h"

namespace tarveth {

class Connection {
public:
    Connection(TcpSocket socket, const ClientAddress& address, const Limits& limits)
        : socket(std::move(socket)), session(this, address, limits) {}

    TcpSocket socket;
    Session session;
    std::size_t place = 0; // index in the transport's list of connections
    bool reading = false;  // an asynchronous wait for readability is pending
    bool writing = false;  // an asynchronous wait for writability is pending
    bool closed = false;   // the socket is closed; the object is freed when no wait is pending
    bool finished = false; // the sending direction has been shut down
};

} // namespace tarveth
