#include "server/Listener.h"

#include "platform/server_process.h"

#include <asio/ip/v6_only.hpp>

#include <system_error>
#include <utility>

namespace tarveth {

namespace {

using namespace std::chrono_literals;

// How long the listener waits before it accepts again, when there is no descriptor left even to refuse a
// client.
constexpr auto kNoSocketPause = 100ms;

bool IsLackOfSockets(const asio::error_code& error) {
    return error == asio::error::no_descriptors || error == asio::error::no_buffer_space ||
           error == asio::error::no_memory || error == std::errc::too_many_files_open_in_system;
}

ClientAddress AddressOf(const asio::ip::address& address) {
    if (address.is_v4())
        return {asio::ip::make_address_v6(asio::ip::v4_mapped, address.to_v4()).to_bytes()};
    return {address.to_v6().to_bytes()};
}

// Opens the acceptor for the address; gives the address that it listens on.
asio::ip::address Open(TcpAcceptor& acceptor, const asio::ip::address& address) {
    asio::error_code error;
    acceptor.open(address.is_v6() ? asio::ip::tcp::v6() : asio::ip::tcp::v4(), error);
    if (error == asio::error::address_family_not_supported && address == asio::ip::address_v6::any()) {
        acceptor.open(asio::ip::tcp::v4());
        return asio::ip::address_v4::any();
    }
    if (error)
        throw std::system_error(error, "open");
    if (address.is_v6())
        acceptor.set_option(asio::ip::v6_only(false));
    return address;
}

} // namespace

Listener::Listener(asio::io_context& io, const std::string& address, std::uint16_t port, Arrivals& arrivals,
                   Chores& chores)
    : io_(io), arrivals_(arrivals), chores_(chores), acceptor_(io), reserve_(io), retry_(io) {
    const asio::ip::address local = Open(acceptor_, asio::ip::make_address(address));
    if (platform::ListenerSetsReuseAddress())
        acceptor_.set_option(TcpAcceptor::reuse_address(true));
    acceptor_.bind({local, port});
    acceptor_.listen();
    acceptor_.non_blocking(true);
    reserve_.open(asio::ip::tcp::v4());
    Wait();
}

void Listener::Close() {
    asio::error_code ignored;
    acceptor_.close(ignored);
    retry_.cancel();
}

void Listener::Wait() {
    acceptor_.async_wait(TcpAcceptor::wait_read, [this](const asio::error_code& error) {
        if (!error)
            chores_.Add([this] { return AcceptOne(); });
    });
}

// False if nobody waits to be accepted, or nobody can be.
bool Listener::AcceptOne() {
    if (!acceptor_.is_open())
        return false;
    asio::error_code error;
    asio::ip::tcp::endpoint peer;
    TcpSocket socket(io_);
    acceptor_.accept(socket, peer, error);
    if (!error) {
        arrivals_.Arrive(std::move(socket), AddressOf(peer.address()));
        return true;
    }
    if (!IsLackOfSockets(error)) {
        Wait();
        return false;
    }
    if (AcceptWithoutRoom())
        return true;
    retry_.expires_after(kNoSocketPause);
    retry_.async_wait([this](const asio::error_code& cancelled) {
        if (!cancelled)
            Wait();
    });
    return false;
}

// Closes the reserve socket to have a descriptor for accepting one client, lets the owner refuse it, and
// opens the reserve again. False if the descriptors did not suffice even for that.
bool Listener::AcceptWithoutRoom() {
    asio::error_code error;
    reserve_.close(error);
    asio::ip::tcp::endpoint peer;
    TcpSocket socket(io_);
    acceptor_.accept(socket, peer, error);
    const bool accepted = !error;
    if (accepted) {
        arrivals_.ArriveWithoutRoom(socket, AddressOf(peer.address()));
        socket.close(error);
    }
    reserve_.open(asio::ip::tcp::v4(), error);
    return accepted && !error;
}

} // namespace tarveth
