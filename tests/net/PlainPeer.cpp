#include "tests/net/PlainPeer.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tarveth {

namespace {

// Far beyond what anything takes; it only keeps a failing test from hanging.
constexpr int kPatience = 20000; // milliseconds
constexpr int kTaken = 1000;     // milliseconds without room for a byte: no more is taken

bool IsReady(int socket, short events, int patience) {
    pollfd wait{socket, events, 0};
    return poll(&wait, 1, patience) == 1;
}

sockaddr_in Loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int PortOf(int socket, int (*name)(int, sockaddr*, socklen_t*)) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    if (name(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        throw std::runtime_error("a socket has no address");
    return ntohs(address.sin_port);
}

int NewSocket(int flags = 0) {
    return socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | flags, 0);
}

int BoundSocket() {
    const int bound = NewSocket();
    const sockaddr_in address = Loopback(0);
    if (bind(bound, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("no port is free");
    return bound;
}

PlainPeer BeginToConnect(int port) {
    const int socket = NewSocket(SOCK_NONBLOCK);
    const sockaddr_in address = Loopback(port);
    static_cast<void>(connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address));
    return PlainPeer(socket);
}

} // namespace

PlainPeer::PlainPeer(PlainPeer&& other) noexcept : socket_(std::exchange(other.socket_, -1)) {}

void PlainPeer::Say(std::string_view bytes) const {
    while (!bytes.empty() && IsReady(socket_, POLLOUT, kPatience)) {
        const ssize_t sent = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent <= 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

std::size_t PlainPeer::SayWhatIsTaken(std::string_view bytes) const {
    std::size_t taken = 0;
    while (taken < bytes.size() && IsReady(socket_, POLLOUT, kTaken)) {
        const ssize_t sent =
            send(socket_, bytes.data() + taken, bytes.size() - taken, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent <= 0)
            break;
        taken += static_cast<std::size_t>(sent);
    }
    return taken;
}

std::string PlainPeer::Hear(std::size_t size) const {
    std::string heard;
    std::array<char, 65536> bytes{};
    while (heard.size() < size && IsReady(socket_, POLLIN, kPatience)) {
        const std::size_t most = std::min(bytes.size(), size - heard.size());
        const ssize_t got = recv(socket_, bytes.data(), most, 0);
        if (got <= 0)
            break;
        heard.append(bytes.data(), static_cast<std::size_t>(got));
    }
    return heard;
}

int PlainPeer::RemotePort() const {
    return PortOf(socket_, getpeername);
}

void PlainPeer::StopWriting() const {
    shutdown(socket_, SHUT_WR);
}

void PlainPeer::Reset() {
    const linger now{1, 0};
    setsockopt(socket_, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    Close();
}

void PlainPeer::Close() {
    if (socket_ >= 0)
        close(std::exchange(socket_, -1));
}

PlainListener::PlainListener(int backlog) : socket_(BoundSocket()), port_(PortOf(socket_, getsockname)) {
    if (listen(socket_, backlog) != 0)
        throw std::runtime_error("a socket can't listen");
}

PlainListener::~PlainListener() {
    close(socket_);
}

PlainPeer PlainListener::Accept() const {
    if (!IsReady(socket_, POLLIN, kPatience))
        throw std::runtime_error("nobody connects");
    return PlainPeer(accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC));
}

RefusingPort::RefusingPort() : socket_(BoundSocket()), port_(PortOf(socket_, getsockname)) {}

RefusingPort::~RefusingPort() {
    close(socket_);
}

SilentPort::SilentPort() : first_(BeginToConnect(Port())), second_(BeginToConnect(Port())) {}

} // namespace tarveth
