// The network address of a client as a value, without sockets. IPv4 addresses are kept in their IPv4-mapped
// form.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarveth {

struct ClientAddress {
    std::array<std::uint8_t, 16> bytes{};

    // NOLINTNEXTLINE(modernize-use-nullptr): the linter takes the comparison's own 0 for a pointer
    auto operator<=>(const ClientAddress&) const = default;

    bool IsIPv4() const;
    bool IsLoopback() const;
    // Gives the unit by which limits are counted: the IPv4 address itself, or the /64 of an IPv6 address,
    // within which one household has as many addresses as it likes.
    ClientAddress LimitPrefix() const;
};

// Reads "192.0.2.1", "::ffff:192.0.2.1" and "2001:db8::1"; nothing if the text is no address.
std::optional<ClientAddress> ParseAddress(std::string_view text);
std::string AddressText(const ClientAddress& address);

} // namespace tarveth
