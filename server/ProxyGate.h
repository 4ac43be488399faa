// Where connections wait that come from a proxy in front of the lobby, until the proxy's header has told whom
// it speaks for.
#pragma once

#include "server/AddressRange.h"
#include "server/asio.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace tarveth {

struct ProxyRules {
    std::vector<AddressRange> proxies;        // who puts a header in front of each connection
    std::chrono::milliseconds patience{5000}; // within which the header must have come
    std::size_t mostWaiting = 1000;
};

class ProxyGate {
public:
    // rest: what the client itself has sent behind the header.
    using Pass = std::function<void(TcpSocket, const ClientAddress& client, std::string_view rest)>;
    // refuse: for the log, why a connection is closed.
    using Refuse = std::function<void(const ClientAddress& proxy, std::string_view reason)>;

    ProxyGate(asio::io_context& io, Pass pass, Refuse refuse)
        : io_(io), pass_(std::move(pass)), refuse_(std::move(refuse)) {}

    void Configure(ProxyRules rules) { rules_ = std::move(rules); }
    bool IsProxy(const ClientAddress& address) const;
    // Reads the header, and then passes the connection on. One without a proper header is closed.
    void Receive(TcpSocket socket, const ClientAddress& proxy);

private:
    struct Waiting;

    void Wait(const std::shared_ptr<Waiting>& waiting);
    void Read(const std::shared_ptr<Waiting>& waiting);
    void Close(Waiting& waiting, std::string_view reason);

    asio::io_context& io_;
    Pass pass_;
    Refuse refuse_;
    ProxyRules rules_;
    std::size_t waiting_ = 0;
};

} // namespace tarveth
