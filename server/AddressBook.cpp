#include "server/AddressBook.h"

#include <algorithm>

namespace tarveth {

namespace {

using namespace std::chrono_literals;

// All allowances are full again this long after the last use of an address.
constexpr auto kForgetAfter = 120s;

// The most entries. An attacker who has more addresses than this finds the lobby full.
constexpr std::size_t kMostEntries = 200'000;

constexpr std::size_t kSmallestSweep = 1024;

} // namespace

AddressBook::Admission AddressBook::Admit(const ClientAddress& address, const Limits& limits, Time now) {
    if (limits.exemptLoopback && address.IsLoopback())
        return nullptr;
    if (entries_.size() >= sweepSize_)
        ForgetUnused(now);
    const ClientAddress prefix = address.LimitPrefix();
    if (entries_.size() >= kMostEntries && !entries_.contains(prefix))
        return Refusal::LobbyFull;
    AddressEntry& entry = entries_[prefix];
    entry.lastUse = now;
    if (entry.connections >= limits.perAddress)
        return Refusal::TooManyFromAddress;
    if (!entry.arrivals.Take(limits.arrivals, 1, now))
        return Refusal::TooManyArrivals;
    ++entry.connections;
    return &entry;
}

void AddressBook::Leave(AddressEntry* entry, Time now) {
    if (entry == nullptr)
        return;
    --entry->connections;
    entry->lastUse = now;
}

void AddressBook::ForgetUnused(Time now) {
    std::erase_if(entries_, [now](const auto& entry) {
        return entry.second.connections == 0 && entry.second.lastUse + kForgetAfter < now;
    });
    sweepSize_ = std::max(kSmallestSweep, 2 * entries_.size());
}

} // namespace tarveth
