#include "tests/net/PlainPeer.h"

#include "net/wire/asio.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <stdexcept>
#include <utility>

namespace tarveth {

namespace {

using namespace std::chrono_literals;
using asio::ip::tcp;

// Far beyond what anything takes; it only keeps a failing test from hanging.
constexpr auto kPatience = 20s;
constexpr auto kTaken = 1s; // without room for a byte: no more is taken

// Some systems take a text of any length at once.
constexpr std::size_t kPiece = 65536;

tcp::endpoint Loopback(int port) {
    return {asio::ip::address_v4::loopback(), static_cast<std::uint16_t>(port)};
}

// Whether the socket has become ready for it in this time.
template <class Socket>
bool BecomesReady(asio::io_context& io, Socket& socket, asio::socket_base::wait_type event,
                  std::chrono::seconds patience) {
    bool ready = false;
    socket.async_wait(event, [&ready](const asio::error_code& failure) { ready = !failure; });
    io.restart();
    io.run_for(patience);
    asio::error_code ignored;
    socket.cancel(ignored);
    io.run();
    return ready;
}

} // namespace

struct PlainPeer::Connection {
    asio::io_context io;
    TcpSocket socket{io};

    // As much of the bytes as is taken, with so much patience for each piece.
    std::size_t Write(std::string_view bytes, std::chrono::seconds patience) {
        std::size_t taken = 0;
        asio::error_code failure;
        while (taken < bytes.size() && !failure && BecomesReady(io, socket, TcpSocket::wait_write, patience))
            taken += socket.write_some(asio::buffer(bytes.substr(taken, kPiece)), failure);
        return taken;
    }

    std::string Read(std::size_t size) {
        std::string bytes;
        std::array<char, kPiece> piece{};
        asio::error_code end;
        while (bytes.size() < size && !end && BecomesReady(io, socket, TcpSocket::wait_read, kPatience)) {
            const std::size_t most = std::min(piece.size(), size - bytes.size());
            bytes.append(piece.data(), socket.read_some(asio::buffer(piece, most), end));
        }
        return bytes;
    }
};

struct HeldPort {
    asio::io_context io;
    tcp::acceptor acceptor{io, tcp::v4()};

    HeldPort() { acceptor.bind(Loopback(0)); }
    int Number() const { return acceptor.local_endpoint().port(); }
};

PlainPeer::PlainPeer(std::unique_ptr<Connection> connection) : connection_(std::move(connection)) {
    connection_->socket.non_blocking(true);
}

PlainPeer::~PlainPeer() = default;
PlainPeer::PlainPeer(PlainPeer&& other) noexcept = default;

void PlainPeer::Say(std::string_view bytes) const {
    connection_->Write(bytes, kPatience);
}

std::size_t PlainPeer::SayWhatIsTaken(std::string_view bytes) const {
    return connection_->Write(bytes, kTaken);
}

std::string PlainPeer::Hear(std::size_t size) const {
    return connection_->Read(size);
}

int PlainPeer::RemotePort() const {
    return connection_->socket.remote_endpoint().port();
}

void PlainPeer::StopWriting() const {
    connection_->socket.shutdown(TcpSocket::shutdown_send);
}

void PlainPeer::Reset() {
    connection_->socket.set_option(TcpSocket::linger(true, 0));
    Close();
}

void PlainPeer::Close() {
    asio::error_code ignored;
    connection_->socket.close(ignored);
}

PlainListener::PlainListener(int backlog) : held_(std::make_unique<HeldPort>()) {
    held_->acceptor.listen(backlog);
}

PlainListener::~PlainListener() = default;

int PlainListener::Port() const {
    return held_->Number();
}

PlainPeer PlainListener::Accept() const {
    if (!BecomesReady(held_->io, held_->acceptor, TcpSocket::wait_read, kPatience))
        throw std::runtime_error("nobody connects");
    auto connection = std::make_unique<PlainPeer::Connection>();
    held_->acceptor.accept(connection->socket);
    return PlainPeer(std::move(connection));
}

RefusingPort::RefusingPort() : held_(std::make_unique<HeldPort>()) {}
RefusingPort::~RefusingPort() = default;

int RefusingPort::Port() const {
    return held_->Number();
}

SilentPort::SilentPort() : first_(Knock()), second_(Knock()) {}

PlainPeer SilentPort::Knock() const {
    auto connection = std::make_unique<PlainPeer::Connection>();
    connection->socket.async_connect(Loopback(Port()), [](const asio::error_code&) {});
    return PlainPeer(std::move(connection));
}

} // namespace tarveth
