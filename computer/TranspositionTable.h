// What the search has found out about positions it may meet again. Threads share one table without locks: an
// entry that two of them wrote at once does not match its key and is not believed.
#pragma once

#include "computer/SearchTurn.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarveth::computer {

// How a stored value relates to the true one.
enum class Bound : std::uint8_t { None, Lower, Upper, Exact };

struct TableEntry {
    SearchTurn turn; // the best one found, none where every turn was too bad to tell
    int value = 0;
    int depth = 0;
    Bound bound = Bound::None; // None: nothing is stored for the position
};

class TranspositionTable {
public:
    explicit TranspositionTable(std::size_t mebibytes);

    TableEntry Find(std::uint64_t key) const;
    void Store(std::uint64_t key, const TableEntry& entry);
    // Asks the processor to fetch what Find will look at.
    void Prefetch(std::uint64_t key) const;
    // Entries of earlier searches give way first from now on.
    void NextSearch() { ++generation_; }
    void Clear();

private:
    struct Slot {
        std::atomic<std::uint64_t> check{0}; // the key, mixed with the data
        std::atomic<std::uint64_t> data{0};
    };
    static constexpr std::size_t kSlots = 4;
    struct alignas(kSlots * sizeof(Slot)) Bucket { // a line of the processor's cache
        std::array<Slot, kSlots> slots;
    };

    Bucket& BucketOf(std::uint64_t key) const { return buckets_[key >> shift_]; }
    int Worth(std::uint64_t data) const;

    std::unique_ptr<Bucket[]> buckets_;
    std::size_t count_;
    unsigned shift_;
    std::uint8_t generation_ = 0;
};

} // namespace tarveth::computer
