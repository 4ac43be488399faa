#include "server/ProxyGate.h"

#include "server/ProxyHeader.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace tarveth {

// A connection whose header is not complete. The handlers of its waits keep it alive.
struct ProxyGate::Waiting {
    Waiting(asio::io_context& io, TcpSocket connected, const ClientAddress& address)
        : socket(std::move(connected)), proxy(address), timer(io) {}

    TcpSocket socket;
    ClientAddress proxy;
    asio::steady_timer timer;
    std::string bytes;
};

bool ProxyGate::IsProxy(const ClientAddress& address) const {
    return std::ranges::any_of(rules_.proxies,
                               [&address](const AddressRange& range) { return range.Holds(address); });
}

void ProxyGate::Receive(TcpSocket socket, const ClientAddress& proxy) {
    const auto waiting = std::make_shared<Waiting>(io_, std::move(socket), proxy);
    ++waiting_;
    if (waiting_ > rules_.mostWaiting) {
        Close(*waiting, "too many connections wait for the proxy's header");
        return;
    }
    asio::error_code ignored;
    waiting->socket.non_blocking(true, ignored);
    waiting->timer.expires_after(rules_.patience);
    waiting->timer.async_wait([this, waiting](const asio::error_code& cancelled) {
        if (!cancelled && waiting->socket.is_open())
            Close(*waiting, "the proxy's header did not come in time");
    });
    Wait(waiting);
}

void ProxyGate::Wait(const std::shared_ptr<Waiting>& waiting) {
    waiting->socket.async_wait(TcpSocket::wait_read, [this, waiting](const asio::error_code& error) {
        if (!error)
            Read(waiting);
    });
}

void ProxyGate::Read(const std::shared_ptr<Waiting>& waiting) {
    std::array<char, kLongestProxyHeader> part{};
    asio::error_code error;
    const std::size_t size = waiting->socket.read_some(asio::buffer(part), error);
    if (error == asio::error::would_block) {
        Wait(waiting);
        return;
    }
    if (error) {
        Close(*waiting, "the connection ended before the proxy's header");
        return;
    }
    waiting->bytes.append(part.data(), size);
    const ProxyHeader header = ReadProxyHeader(waiting->bytes);
    if (header.state == ProxyHeader::State::Incomplete) {
        Wait(waiting);
        return;
    }
    if (header.state == ProxyHeader::State::Broken) {
        Close(*waiting, "it did not begin with a proxy's header");
        return;
    }
    --waiting_;
    waiting->timer.cancel();
    pass_(std::move(waiting->socket), header.client.value_or(waiting->proxy),
          std::string_view(waiting->bytes).substr(header.size));
}

void ProxyGate::Close(Waiting& waiting, std::string_view reason) {
    --waiting_;
    waiting.timer.cancel();
    asio::error_code ignored;
    waiting.socket.close(ignored);
    refuse_(waiting.proxy, reason);
}

} // namespace tarveth
