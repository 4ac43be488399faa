// The header that a proxy puts in front of a connection's bytes to name the client that it speaks for: the
// PROXY protocol, versions 1 and 2.
#pragma once

#include "server/ClientAddress.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarveth {

struct ProxyHeader {
    enum class State { Incomplete, Broken, Complete };

    State state = State::Incomplete;
    std::size_t size = 0;                // of the header; the client's own bytes follow it
    std::optional<ClientAddress> client; // nothing if the proxy speaks for itself or for an unknown client
};

// The header is never longer than this; a longer one is broken.
inline constexpr std::size_t kLongestProxyHeader = 4096;

// Reads the header at the start of the bytes.
ProxyHeader ReadProxyHeader(std::string_view bytes);

} // namespace tarveth
