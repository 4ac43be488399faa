// The Asio types of the lobby, without the overhead of type-erased executors.
#pragma once

#include "net/wire/asio.h"

#include <asio/basic_socket_acceptor.hpp>
#include <asio/signal_set.hpp>

namespace tarveth {

using TcpAcceptor = asio::basic_socket_acceptor<asio::ip::tcp, asio::io_context::executor_type>;

} // namespace tarveth
