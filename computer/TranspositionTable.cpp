#include "computer/TranspositionTable.h"

#include <algorithm>
#include <bit>

namespace tarveth::computer {

namespace {

// From the lowest bit: turn, value, depth, bound, generation.
constexpr unsigned kValueAt = SearchTurn::kBits;
constexpr unsigned kDepthAt = kValueAt + 16;
constexpr unsigned kBoundAt = kDepthAt + 8;
constexpr unsigned kGenerationAt = kBoundAt + 2;

std::uint64_t Pack(const TableEntry& entry, std::uint8_t generation) {
    return entry.turn.Bits() |
           std::uint64_t{static_cast<std::uint16_t>(static_cast<std::int16_t>(entry.value))} << kValueAt |
           std::uint64_t{static_cast<std::uint8_t>(entry.depth)} << kDepthAt |
           std::uint64_t{static_cast<std::uint8_t>(entry.bound)} << kBoundAt |
           std::uint64_t{generation} << kGenerationAt;
}

int DepthOf(std::uint64_t data) {
    return static_cast<std::int8_t>(static_cast<std::uint8_t>(data >> kDepthAt));
}

TableEntry Unpack(std::uint64_t data) {
    return {SearchTurn::FromBits(static_cast<std::uint32_t>(data) & ((1U << SearchTurn::kBits) - 1)),
            static_cast<std::int16_t>(static_cast<std::uint16_t>(data >> kValueAt)), DepthOf(data),
            static_cast<Bound>(data >> kBoundAt & 3U)};
}

} // namespace

TranspositionTable::TranspositionTable(std::size_t mebibytes)
    : count_(std::bit_floor(mebibytes * 1024 * 1024 / sizeof(Bucket))),
      shift_(64U - static_cast<unsigned>(std::countr_zero(count_))) {
    buckets_ = std::make_unique<Bucket[]>(count_);
}

TableEntry TranspositionTable::Find(std::uint64_t key) const {
    for (const Slot& slot : BucketOf(key).slots) {
        const std::uint64_t data = slot.data.load(std::memory_order_relaxed);
        if ((slot.check.load(std::memory_order_relaxed) ^ data) == key && data != 0)
            return Unpack(data);
    }
    return {};
}

// Deep entries of recent searches are worth keeping.
int TranspositionTable::Worth(std::uint64_t data) const {
    const auto age =
        static_cast<std::uint8_t>(generation_ - static_cast<std::uint8_t>(data >> kGenerationAt));
    return data == 0 ? -1000 : DepthOf(data) - 4 * std::min<int>(age, 60);
}

void TranspositionTable::Store(std::uint64_t key, const TableEntry& entry) {
    Bucket& bucket = BucketOf(key);
    Slot* worst = bucket.slots.data();
    TableEntry stored = entry;
    for (Slot& slot : bucket.slots) {
        const std::uint64_t data = slot.data.load(std::memory_order_relaxed);
        if ((slot.check.load(std::memory_order_relaxed) ^ data) == key) {
            if (stored.turn.IsNone())
                stored.turn = Unpack(data).turn;
            worst = &slot;
            break;
        }
        if (Worth(data) < Worth(worst->data.load(std::memory_order_relaxed)))
            worst = &slot;
    }
    const std::uint64_t data = Pack(stored, generation_);
    worst->data.store(data, std::memory_order_relaxed);
    worst->check.store(key ^ data, std::memory_order_relaxed);
}

void TranspositionTable::Prefetch(std::uint64_t key) const {
#ifdef __GNUC__
    __builtin_prefetch(&BucketOf(key));
#else
    static_cast<void>(key);
#endif
}

void TranspositionTable::Clear() {
    for (std::size_t i = 0; i < count_; ++i)
        for (Slot& slot : buckets_[i].slots) {
            slot.check.store(0, std::memory_order_relaxed);
            slot.data.store(0, std::memory_order_relaxed);
        }
    generation_ = 0;
}

} // namespace tarveth::computer
