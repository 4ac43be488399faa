#include "server/Outgoing.h"

#include <algorithm>
#include <cstring>

namespace tarveth {

namespace {

constexpr std::size_t kBlockSize = std::size_t{64} << 10;

// So few bytes left to send do not hold a whole block in memory.
constexpr std::size_t kWorthABlock = kBlockSize / 4;

// An idle user's outbox keeps no more room than this.
constexpr std::size_t kIdleStretches = 2;

// Calls use(stretch) for what is left of the stretches behind so many bytes.
template <class Use>
void ForEachBehind(const std::vector<Stretch>& stretches, std::size_t skipped, Use use) {
    for (const Stretch& stretch : stretches) {
        const std::size_t length = std::size_t{stretch.end} - stretch.begin;
        if (skipped < length) {
            Stretch rest = stretch;
            rest.begin += static_cast<std::uint32_t>(skipped);
            use(rest);
        }
        skipped -= std::min(skipped, length);
    }
}

void DropSent(Outbox& box, std::size_t bytes) {
    box.unsent -= bytes;
    std::size_t gone = 0;
    while (gone < box.stretches.size()) {
        Stretch& first = box.stretches[gone];
        const std::size_t length = std::size_t{first.end} - first.begin;
        if (bytes < length) {
            first.begin += static_cast<std::uint32_t>(bytes);
            break;
        }
        bytes -= length;
        ++gone;
    }
    box.stretches.erase(box.stretches.begin(), box.stretches.begin() + static_cast<std::ptrdiff_t>(gone));
    if (box.stretches.empty() && box.stretches.capacity() > kIdleStretches)
        box.stretches = {};
}

void CopyOut(Outbox& box) {
    auto own = std::make_shared<Block>(box.unsent);
    for (const Stretch& stretch : box.stretches) {
        const std::string_view view = stretch.View();
        std::memcpy(own->bytes.get() + own->size, view.data(), view.size());
        own->size += view.size();
    }
    const auto size = static_cast<std::uint32_t>(own->size);
    box.stretches.clear();
    box.stretches.push_back({std::move(own), 0, size});
}

} // namespace

Stretch BlockWriter::Append(Parts parts) {
    std::size_t length = 0;
    for (const std::string_view part : parts)
        length += part.size();
    // Nobody points at it any more: its room is free again.
    if (block_ && block_.use_count() == 1)
        block_->size = 0;
    if (!block_ || block_->capacity - block_->size < length)
        block_ = std::make_shared<Block>(std::max(kBlockSize, length));
    const auto begin = static_cast<std::uint32_t>(block_->size);
    for (const std::string_view part : parts) {
        if (!part.empty())
            std::memcpy(block_->bytes.get() + block_->size, part.data(), part.size());
        block_->size += part.size();
    }
    return {block_, begin, static_cast<std::uint32_t>(block_->size)};
}

void AddStretch(std::vector<Stretch>& list, const Stretch& stretch) {
    if (!list.empty() && list.back().block == stretch.block && list.back().end == stretch.begin)
        list.back().end = stretch.end;
    else
        list.push_back(stretch);
}

void Outgoing::ToOne(Outbox& box, BlockWriter::Parts parts) {
    KeepAnnouncements(box);
    const Stretch stretch = letters_.Append(parts);
    box.unsent += stretch.View().size();
    AddStretch(box.stretches, stretch);
}

void Outgoing::ToOne(Outbox& box, const std::vector<Stretch>& stretches) {
    KeepAnnouncements(box);
    for (const Stretch& stretch : stretches) {
        box.unsent += stretch.View().size();
        AddStretch(box.stretches, stretch);
    }
}

void Outgoing::ToAll(BlockWriter::Parts parts) {
    const Stretch stretch = announcements_.Append(parts);
    announced_ += stretch.View().size();
    AddStretch(announcedThisTurn_, stretch);
}

void Outgoing::HearAll(Outbox& box) const {
    box.turn = turn_;
    box.heard = announced_;
}

void Outgoing::StartListening(Outbox& box) {
    box.listening = true;
    HearAll(box);
}

void Outgoing::KeepAnnouncements(Outbox& box) {
    if (!box.listening || Heard(box) == announced_)
        return;
    box.unsent += announced_ - Heard(box);
    ForEachBehind(announcedThisTurn_, Heard(box),
                  [&box](const Stretch& stretch) { AddStretch(box.stretches, stretch); });
    HearAll(box);
}

void Outgoing::SkipAnnouncement(Outbox& box) {
    HearAll(box);
}

std::size_t Outgoing::Unsent(const Outbox& box) const {
    return box.unsent + (box.listening ? announced_ - Heard(box) : 0);
}

const std::vector<std::string_view>& Outgoing::Pending(const Outbox& box, std::size_t parts) {
    pending_.clear();
    for (const Stretch& stretch : box.stretches) {
        if (pending_.size() == parts)
            return pending_;
        pending_.push_back(stretch.View());
    }
    if (box.listening)
        ForEachBehind(announcedThisTurn_, Heard(box), [this, parts](const Stretch& stretch) {
            if (pending_.size() < parts)
                pending_.push_back(stretch.View());
        });
    return pending_;
}

void Outgoing::Sent(Outbox& box, std::size_t bytes) {
    if (bytes == Unsent(box)) {
        box.unsent = 0;
        box.stretches.clear();
        if (box.stretches.capacity() > kIdleStretches)
            box.stretches = {};
        HearAll(box);
        return;
    }
    KeepAnnouncements(box);
    DropSent(box, bytes);
    if (box.unsent < kWorthABlock)
        CopyOut(box);
}

void Outgoing::EndTurn() {
    announcedThisTurn_.clear();
    announced_ = 0;
    ++turn_;
}

} // namespace tarveth
