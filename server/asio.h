// Asio, as the lobby uses it: on its own, and on one thread.
#pragma once

#ifndef ASIO_STANDALONE
#define ASIO_STANDALONE
#endif

// First, so that every file sees the same of the library's macros: by some of them Asio chooses how it
// allocates, and what one file allocates another one frees.
#include <cstdlib>

#include <asio/basic_socket_acceptor.hpp>
#include <asio/basic_stream_socket.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/post.hpp>
#include <asio/signal_set.hpp>
#include <asio/steady_timer.hpp>

namespace tarveth {

// Knows its executor's type, and so is smaller than the usual socket.
using TcpSocket = asio::basic_stream_socket<asio::ip::tcp, asio::io_context::executor_type>;
using TcpAcceptor = asio::basic_socket_acceptor<asio::ip::tcp, asio::io_context::executor_type>;

} // namespace tarveth
