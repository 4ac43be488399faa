#include "server/ControlSocket.h"

#include <stdexcept>

namespace tarveth {

std::unique_ptr<ControlSocket> OpenControlSocket(asio::io_context&, const std::string&,
                                                 ControlSocket::Handle) {
    throw std::runtime_error("--control is not available on Windows, since it needs a socket that the "
                             "system guards by its owner");
}

} // namespace tarveth
