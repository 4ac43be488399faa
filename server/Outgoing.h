// The bytes that wait to be sent. They are written once, into blocks that never move, and a user's outbox
// holds slices of these blocks, so that an announcement to all users is stored once. The transport sends the
// slices and reports how many bytes it has sent.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace tarveth {

// The bytes of all blocks that are alive.
using ByteCount = std::shared_ptr<std::size_t>;

struct Block {
    Block(std::size_t room, ByteCount count)
        : bytes(new char[room]), capacity(room), total(std::move(count)) {
        *total += capacity;
    }
    ~Block() { *total -= capacity; }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    std::size_t capacity;
    bool ofOneBox = false; // a copy for one outbox, to which nothing else points
    ByteCount total;
};

// A part of a block; it keeps the block alive.
struct Slice {
    std::shared_ptr<Block> block;
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    std::string_view View() const { return {block->bytes.get() + begin, std::size_t{end} - begin}; }
};

// Appends text to a block, and starts another block when the text does not fit.
class BlockWriter {
public:
    using Parts = std::initializer_list<std::string_view>;

    explicit BlockWriter(ByteCount total = std::make_shared<std::size_t>(0)) : total_(std::move(total)) {}

    Slice Append(Parts parts);

private:
    ByteCount total_;
    std::shared_ptr<Block> block_;
};

// Adds the slice to the end of the list; a slice that continues the last one is merged with it.
void AddSlice(std::vector<Slice>& list, const Slice& slice);

// What one user has yet to be sent: first the slices, then this turn's announcements from `taken` on. A turn
// is the time between two calls of EndTurn.
struct Outbox {
    std::vector<Slice> slices;
    std::size_t unsent = 0; // bytes of the slices
    std::size_t taken = 0;  // bytes of the turn's announcements that were sent or queued as slices
    std::uint32_t turn = 0; // the turn that `taken` belongs to
    bool listening = false; // whether the user receives announcements
    bool slow = false;      // the socket has not taken all that was sent
    std::size_t held = 0;   // the bytes of blocks that the slices of a slow outbox keep in memory
};

class Outgoing {
public:
    void ToOne(Outbox& box, BlockWriter::Parts parts);
    void ToOne(Outbox& box, const std::vector<Slice>& slices);
    void ToAll(BlockWriter::Parts parts);

    // The user receives all announcements that follow.
    void StartListening(Outbox& box);
    // Queues all announcements so far for this user. Call SkipAnnouncement after one that the user must not
    // see.
    void QueueAnnouncements(Outbox& box);
    void SkipAnnouncement(Outbox& box);

    // The socket takes nothing more for now. From here on, until all is sent, the outbox holds copies of its
    // small slices, since a slice of a few bytes would keep a whole block in memory.
    void Hold(Outbox& box);
    // Drops what is queued for a connection that is closed.
    static void Discard(Outbox& box);
    // The bytes that the outbox keeps in memory; a block that others use as well counts in full.
    std::size_t HeldBy(const Outbox& box) const;
    // The bytes of all blocks, each counted once.
    std::size_t BytesHeld() const { return *total_; }
    const ByteCount& Count() const { return total_; }

    bool HasAnnouncements() const { return announced_ > 0; }
    std::size_t Unsent(const Outbox& box) const;

    // Gives the next bytes to send, in at most that many parts. They are valid until any other call.
    const std::vector<std::string_view>& Pending(const Outbox& box, std::size_t parts);
    // Drops that many bytes from the front of the queue, after the transport has sent them.
    void Sent(Outbox& box, std::size_t bytes);

    // Ends the turn. Every listener must have been sent this turn's announcements, or have them queued.
    void EndTurn();

private:
    std::size_t Taken(const Outbox& box) const { return box.turn == turn_ ? box.taken : 0; }
    void TakeAll(Outbox& box) const;
    void Queue(Outbox& box, const Slice& slice) const;
    void CopySmallLast(Outbox& box) const;
    void CopyOut(Outbox& box) const;

    ByteCount total_ = std::make_shared<std::size_t>(0);
    BlockWriter personal_{total_};
    BlockWriter announcements_{total_};
    std::vector<Slice> announcedThisTurn_;
    std::size_t announced_ = 0; // bytes of announcedThisTurn_
    std::uint32_t turn_ = 1;
    std::vector<std::string_view> pending_;
};

} // namespace tarveth
