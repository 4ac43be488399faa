// A range of network addresses, as operators name them: one address, or all that begin with the same bits.
#pragma once

#include "server/ClientAddress.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

struct AddressRange {
    ClientAddress first; // all bits behind the prefix are 0
    unsigned bits = 128; // the length of the prefix, in the IPv4-mapped form for IPv4 addresses

    bool operator==(const AddressRange&) const = default;

    bool Holds(const ClientAddress& address) const;
};

// Gives the range of all addresses that begin with the same bits as this one.
AddressRange RangeOf(const ClientAddress& address, unsigned bits);
// Gives the range that limits count as one address: the IPv4 address, or the /64 of an IPv6 address.
AddressRange LimitRange(const ClientAddress& address);

// Reads "192.0.2.1", "192.0.2.0/24" and "2001:db8::/32"; nothing if the text is no range.
std::optional<AddressRange> ParseRange(std::string_view text);
// Reads ranges with commas between them; nothing if one of them is no range.
std::optional<std::vector<AddressRange>> ParseRanges(std::string_view text);
std::string RangeText(const AddressRange& range);

} // namespace tarveth
