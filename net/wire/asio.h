// Asio, as the game and the lobby use it: on its own, without Boost.
#pragma once

#ifndef ASIO_STANDALONE
#define ASIO_STANDALONE
#endif

// First, so that every file sees the same of the library's macros: by some of them Asio chooses how it
// allocates, and what one file allocates another one frees.
#include <cstdlib>

#include <asio/basic_stream_socket.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/post.hpp>
#include <asio/steady_timer.hpp>

namespace tarveth {

// Knows its executor's type, and so is smaller than the usual socket.
using TcpSocket = asio::basic_stream_socket<asio::ip::tcp, asio::io_context::executor_type>;

} // namespace tarveth
