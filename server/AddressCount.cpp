#include "server/AddressCount.h"

namespace tarveth {

namespace {

// Gives the IPv4 address of an IPv4-mapped IPv6 address (::ffff:192.0.2.1), as a dual-stack socket reports
// it.
asio::ip::address Plain(const asio::ip::address& address) {
    if (address.is_v6() && address.to_v6().is_v4_mapped())
        return asio::ip::make_address_v4(asio::ip::v4_mapped, address.to_v6());
    return address;
}

} // namespace

bool AddressCount::Enter(const asio::ip::address& address) {
    const asio::ip::address plain = Plain(address);
    if (plain.is_loopback())
        return true;
    std::size_t& count = counts_[plain];
    if (count >= most_)
        return false;
    ++count;
    return true;
}

void AddressCount::Leave(const asio::ip::address& address) {
    const auto counted = counts_.find(Plain(address));
    if (counted != counts_.end() && --counted->second == 0)
        counts_.erase(counted);
}

} // namespace tarveth
