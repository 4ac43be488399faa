#include "server/ClientAddress.h"

#include <asio/ip/address.hpp>

#include <algorithm>

namespace tarveth {

namespace {

constexpr std::array<std::uint8_t, 12> kMappedPrefix = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF};
constexpr std::uint8_t kLoopbackNetwork = 127;
constexpr std::size_t kPrefixBytes = 8; // of an IPv6 /64

asio::ip::address_v6 AsioAddress(const ClientAddress& address) {
    return asio::ip::address_v6(address.bytes);
}

} // namespace

bool ClientAddress::IsIPv4() const {
    return std::equal(kMappedPrefix.begin(), kMappedPrefix.end(), bytes.begin());
}

bool ClientAddress::IsLoopback() const {
    return IsIPv4() ? bytes[kMappedPrefix.size()] == kLoopbackNetwork : AsioAddress(*this).is_loopback();
}

ClientAddress ClientAddress::LimitPrefix() const {
    ClientAddress prefix = *this;
    if (!IsIPv4())
        std::fill(prefix.bytes.begin() + kPrefixBytes, prefix.bytes.end(), std::uint8_t{0});
    return prefix;
}

std::optional<ClientAddress> ParseAddress(std::string_view text) {
    asio::error_code error;
    const auto address = asio::ip::make_address(std::string(text), error);
    // Systems differ in what else they take for an IPv4 address: "1.2.3" is one of them for some.
    if (error || (address.is_v4() && address.to_string() != text))
        return std::nullopt;
    const auto wide =
        address.is_v4() ? asio::ip::make_address_v6(asio::ip::v4_mapped, address.to_v4()) : address.to_v6();
    return ClientAddress{wide.to_bytes()};
}

std::string AddressText(const ClientAddress& address) {
    if (address.IsIPv4())
        return asio::ip::make_address_v4(asio::ip::v4_mapped, AsioAddress(address)).to_string();
    return AsioAddress(address).to_string();
}

} // namespace tarveth
