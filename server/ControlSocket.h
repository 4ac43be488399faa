// The local socket by which tarveth-lobby-ctl reaches the running lobby. Only the lobby's own user, and the
// superuser, may use it. A request is one line, its words with tabs between them; the answer is "ok" or
// "error" on a line of its own, and a text.
#pragma once

#include "server/Operator.h"
#include "server/asio.h"

#include <functional>
#include <memory>
#include <string>

namespace tarveth {

class ControlSocket {
public:
    using Handle = std::function<Operator::Answer(const Operator::Words&)>;

    ControlSocket() = default;
    virtual ~ControlSocket() = default;
    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

    // Stops listening, and removes the socket's file.
    virtual void Close() = 0;
};

// Listens on a local socket at the path. A file that an ended lobby has left there is replaced. Throws
// std::runtime_error if the path cannot be used, or if the system has no such sockets.
std::unique_ptr<ControlSocket> OpenControlSocket(asio::io_context& io, const std::string& path,
                                                 ControlSocket::Handle handle);

} // namespace tarveth
