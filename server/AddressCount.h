// Counts the connections of each address and limits them. Loopback addresses are not counted.
#pragma once

#include "server/asio.h"

#include <cstddef>
#include <map>

namespace tarveth {

class AddressCount {
public:
    explicit AddressCount(std::size_t most) : most_(most) {}

    // Counts a new connection of the address; false if the address has as many as it may have.
    bool Enter(const asio::ip::address& address);
    // Uncounts a connection for which Enter gave true.
    void Leave(const asio::ip::address& address);

private:
    std::size_t most_;
    std::map<asio::ip::address, std::size_t> counts_;
};

} // namespace tarveth
