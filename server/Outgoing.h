// What is on its way to the users. Bytes are written once, into blocks that never move, and each user's
// outbox only points at them: what all hear is shared by all. The transport sends and tells how much has
// gone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

namespace tarveth {

struct Block {
    explicit Block(std::size_t room) : bytes(new char[room]), capacity(room) {}
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    std::size_t capacity;
};

// Part of a block.
struct Stretch {
    std::shared_ptr<const Block> block;
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    std::string_view View() const { return {block->bytes.get() + begin, std::size_t{end} - begin}; }
};

// Appends to blocks; starts another one when a text does not fit.
class BlockWriter {
public:
    using Parts = std::initializer_list<std::string_view>;

    Stretch Append(Parts parts);

private:
    std::shared_ptr<Block> block_;
};

// Adds the stretch to the end of the list, to its last one if that ends where the new one begins.
void AddStretch(std::vector<Stretch>& list, const Stretch& stretch);

// What one user has yet to be sent, in order: the stretches, then what of this turn's announcements he has
// not heard.
struct Outbox {
    std::vector<Stretch> stretches;
    std::size_t unsent = 0; // bytes of the stretches
    std::size_t heard = 0;  // bytes of the announcements of the turn
    std::uint32_t turn = 0; // that heard is about
    bool listening = false; // does he hear announcements at all?
};

class Outgoing {
public:
    void ToOne(Outbox& box, BlockWriter::Parts parts);
    void ToOne(Outbox& box, const std::vector<Stretch>& stretches);
    void ToAll(BlockWriter::Parts parts);

    // The user hears announcements from here on.
    void StartListening(Outbox& box);
    // Those before are for him; call SkipAnnouncement after one that is not.
    void KeepAnnouncements(Outbox& box);
    void SkipAnnouncement(Outbox& box);

    bool HasAnnouncements() const { return announced_ > 0; }
    std::size_t Unsent(const Outbox& box) const;

    // The next bytes to send, at most so many parts; valid until the next call or message.
    const std::vector<std::string_view>& Pending(const Outbox& box, std::size_t parts);
    // So many bytes of the pending ones have been sent.
    void Sent(Outbox& box, std::size_t bytes);

    // Every listener has been sent, or keeps, this turn's announcements.
    void EndTurn();

private:
    std::size_t Heard(const Outbox& box) const { return box.turn == turn_ ? box.heard : 0; }
    void HearAll(Outbox& box) const;

    BlockWriter letters_;
    BlockWriter announcements_;
    std::vector<Stretch> announcedThisTurn_;
    std::size_t announced_ = 0; // their bytes
    std::uint32_t turn_ = 1;
    std::vector<std::string_view> pending_;
};

} // namespace tarveth
