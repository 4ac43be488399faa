// What each address has used up, so that no limit is renewed by reconnecting. An entry stays until its
// address has no connection and all its allowances are full again.
#pragma once

#include "server/Allowances.h"
#include "server/ClientAddress.h"
#include "server/Refusal.h"

#include <cstddef>
#include <map>
#include <optional>
#include <variant>

namespace tarveth {

struct AddressEntry {
    Allowances allowances;
    Bucket arrivals;
    std::size_t connections = 0;
    Time lastUse{};
};

class AddressBook {
public:
    using Admission = std::variant<AddressEntry*, Refusal>;

    // Counts a new connection of the address, or gives the reason why it is refused. The entry is null for an
    // address that is exempt from limits; it stays where it is as long as a connection is counted.
    Admission Admit(const ClientAddress& address, const Limits& limits, Time now);
    // Uncounts a connection; the entry may be null.
    static void Leave(AddressEntry* entry, Time now);

    std::size_t Size() const { return entries_.size(); }

private:
    void ForgetUnused(Time now);

    std::map<ClientAddress, AddressEntry> entries_; // by ClientAddress::LimitPrefix
    std::size_t sweepSize_ = 1024; // how many entries there are before unused ones are looked for
};

} // namespace tarveth
