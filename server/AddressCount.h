// How many clients each address has, so that none takes all the places. This computer's own are not counted.
#pragma once

#include "server/asio.h"

#include <cstddef>
#include <map>

namespace tarveth {

class AddressCount {
public:
    explicit AddressCount(std::size_t most) : most_(most) {}

    // Counts one more, if the address may have one more.
    bool Enter(const asio::ip::address& address);
    // One that has entered goes.
    void Leave(const asio::ip::address& address);

private:
    std::size_t most_;
    std::map<asio::ip::address, std::size_t> counts_;
};

} // namespace tarveth
