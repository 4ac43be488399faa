#include "server/Outgoing.h"

#include <algorithm>
#include <cstring>

namespace tarveth {

namespace {

constexpr std::size_t kBlockSize = std::size_t{64} << 10;

// When fewer bytes than this are left to send, they are copied out, so that they do not keep whole blocks in
// memory.
constexpr std::size_t kWorthABlock = kBlockSize / 4;

// The size of the blocks into which a slow outbox copies its small slices.
constexpr std::size_t kCopyBlockSize = kWorthABlock;

// The capacity of the list of slices that an outbox keeps while it is empty.
constexpr std::size_t kIdleSlices = 2;

// Calls use(slice) for each slice behind the first `skipped` bytes; a slice that begins before is cut.
template <class Use>
void ForEachBehind(const std::vector<Slice>& slices, std::size_t skipped, Use use) {
    for (const Slice& slice : slices) {
        const std::size_t length = std::size_t{slice.end} - slice.begin;
        if (skipped < length) {
            Slice rest = slice;
            rest.begin += static_cast<std::uint32_t>(skipped);
            use(rest);
        }
        skipped -= std::min(skipped, length);
    }
}

void DropSent(Outbox& box, std::size_t bytes) {
    box.unsent -= bytes;
    std::size_t gone = 0;
    while (gone < box.slices.size()) {
        Slice& first = box.slices[gone];
        const std::size_t length = std::size_t{first.end} - first.begin;
        if (bytes < length) {
            first.begin += static_cast<std::uint32_t>(bytes);
            break;
        }
        bytes -= length;
        box.held -= std::min(box.held, first.block->capacity);
        ++gone;
    }
    box.slices.erase(box.slices.begin(), box.slices.begin() + static_cast<std::ptrdiff_t>(gone));
    if (box.slices.empty() && box.slices.capacity() > kIdleSlices)
        box.slices = {};
}

bool Continues(const std::vector<Slice>& list, const Slice& slice) {
    return !list.empty() && list.back().block == slice.block && list.back().end == slice.begin;
}

// Appends the slice's bytes to the block of another one that ends where its block does.
void AppendBytes(Slice& to, const Slice& slice) {
    const std::string_view bytes = slice.View();
    std::memcpy(to.block->bytes.get() + to.block->size, bytes.data(), bytes.size());
    to.block->size += bytes.size();
    to.end += static_cast<std::uint32_t>(bytes.size());
}

} // namespace

Slice BlockWriter::Append(Parts parts) {
    std::size_t length = 0;
    for (const std::string_view part : parts)
        length += part.size();
    // No slice uses the block any more, so it can be filled from its start.
    if (block_ && block_.use_count() == 1)
        block_->size = 0;
    if (!block_ || block_->capacity - block_->size < length)
        block_ = std::make_shared<Block>(std::max(kBlockSize, length), total_);
    const auto begin = static_cast<std::uint32_t>(block_->size);
    for (const std::string_view part : parts) {
        if (!part.empty())
            std::memcpy(block_->bytes.get() + block_->size, part.data(), part.size());
        block_->size += part.size();
    }
    return {block_, begin, static_cast<std::uint32_t>(block_->size)};
}

void AddSlice(std::vector<Slice>& list, const Slice& slice) {
    if (Continues(list, slice))
        list.back().end = slice.end;
    else
        list.push_back(slice);
}

void Outgoing::Queue(Outbox& box, const Slice& slice) const {
    box.unsent += slice.View().size();
    if (Continues(box.slices, slice)) {
        box.slices.back().end = slice.end;
        return;
    }
    if (box.slow)
        CopySmallLast(box);
    box.slices.push_back(slice);
    if (box.slow)
        box.held += slice.block->capacity;
}

// The last slice of a slow outbox grows no more. If it is small, its bytes are copied, so that it no longer
// keeps a block that others fill.
void Outgoing::CopySmallLast(Outbox& box) const {
    if (box.slices.empty() || box.slices.back().block->ofOneBox ||
        box.slices.back().View().size() >= kWorthABlock)
        return;
    const Slice last = box.slices.back();
    const std::size_t size = last.View().size();
    box.slices.pop_back();
    box.held -= last.block->capacity;
    const bool fits = !box.slices.empty() && box.slices.back().block->ofOneBox &&
                      box.slices.back().block->capacity - box.slices.back().block->size >= size;
    if (!fits) {
        auto block = std::make_shared<Block>(std::max(kCopyBlockSize, size), total_);
        block->ofOneBox = true;
        box.held += block->capacity;
        box.slices.push_back({std::move(block), 0, 0});
    }
    AppendBytes(box.slices.back(), last);
}

void Outgoing::CopyOut(Outbox& box) const {
    Slice own{std::make_shared<Block>(box.unsent, total_), 0, 0};
    own.block->ofOneBox = true;
    for (const Slice& slice : box.slices)
        AppendBytes(own, slice);
    box.slow = true;
    box.held = own.block->capacity;
    box.slices.clear();
    box.slices.push_back(std::move(own));
}

void Outgoing::Hold(Outbox& box) {
    QueueAnnouncements(box);
    if (box.slow)
        return;
    const std::vector<Slice> slices = std::exchange(box.slices, {});
    box.slow = true;
    box.held = 0;
    box.unsent = 0;
    for (const Slice& slice : slices)
        Queue(box, slice);
}

void Outgoing::Discard(Outbox& box) {
    box = {};
}

std::size_t Outgoing::HeldBy(const Outbox& box) const {
    return std::max(Unsent(box), box.held + box.slices.capacity() * sizeof(Slice));
}

void Outgoing::ToOne(Outbox& box, BlockWriter::Parts parts) {
    QueueAnnouncements(box);
    Queue(box, personal_.Append(parts));
}

void Outgoing::ToOne(Outbox& box, const std::vector<Slice>& slices) {
    QueueAnnouncements(box);
    for (const Slice& slice : slices)
        Queue(box, slice);
}

void Outgoing::ToAll(BlockWriter::Parts parts) {
    const Slice slice = announcements_.Append(parts);
    announcedEnd_ += slice.View().size();
    AddSlice(announced_, slice);
}

void Outgoing::StartListening(Outbox& box) {
    box.listening = true;
    box.taken = announcedEnd_;
}

void Outgoing::QueueAnnouncements(Outbox& box) {
    if (!box.listening || box.taken == announcedEnd_)
        return;
    ForEachBehind(announced_, Taken(box), [this, &box](const Slice& slice) { Queue(box, slice); });
    box.taken = announcedEnd_;
}

void Outgoing::SkipAnnouncement(Outbox& box) {
    box.taken = announcedEnd_;
}

std::size_t Outgoing::Unsent(const Outbox& box) const {
    return box.unsent + (box.listening ? announcedEnd_ - box.taken : 0);
}

const std::vector<std::string_view>& Outgoing::Pending(const Outbox& box, std::size_t parts) {
    pending_.clear();
    for (const Slice& slice : box.slices) {
        if (pending_.size() == parts)
            return pending_;
        pending_.push_back(slice.View());
    }
    if (box.listening)
        ForEachBehind(announced_, Taken(box), [this, parts](const Slice& slice) {
            if (pending_.size() < parts)
                pending_.push_back(slice.View());
        });
    return pending_;
}

void Outgoing::Sent(Outbox& box, std::size_t bytes) {
    if (bytes == Unsent(box)) {
        box.unsent = 0;
        box.slices.clear();
        if (box.slices.capacity() > kIdleSlices)
            box.slices = {};
        box.slow = false;
        box.held = 0;
        box.taken = announcedEnd_;
        return;
    }
    QueueAnnouncements(box);
    DropSent(box, bytes);
    if (box.unsent < kWorthABlock)
        CopyOut(box);
}

void Outgoing::ForgetAnnouncements(std::uint64_t end) {
    std::vector<Slice> rest;
    ForEachBehind(announced_, end - announcedBegin_, [&rest](const Slice& slice) { rest.push_back(slice); });
    announced_ = std::move(rest);
    announcedBegin_ = end;
}

} // namespace tarveth
