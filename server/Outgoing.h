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

// What one user has yet to be sent: first the slices, then the announcements from `taken` on.
struct Outbox {
    std::vector<Slice> slices;
    std::size_t unsent = 0;  // bytes of the slices
    std::uint64_t taken = 0; // position in the announcements up to which they were sent or queued as slices
    bool listening = false;  // whether the user receives announcements
    bool slow = false;       // the socket has not taken all that was sent
    std::size_t held = 0;    // the bytes of blocks that the slices of a slow outbox keep in memory
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

    // Whether there are announcements that have not been forgotten.
    bool HasAnnouncements() const { return announcedEnd_ > announcedBegin_; }
    // The number of bytes that have ever been announced: the position behind the last announcement.
    std::uint64_t AnnouncementsEnd() const { return announcedEnd_; }
    // Forgets the announcements before that position. Every listener must have been sent them, or have them
    // queued.
    void ForgetAnnouncements(std::uint64_t end);
    std::size_t Unsent(const Outbox& box) const;

    // Gives the next bytes to send, in at most that many parts. They are valid until any other call.
    const std::vector<std::string_view>& Pending(const Outbox& box, std::size_t parts);
    // Drops that many bytes from the front of the queue, after the transport has sent them.
    void Sent(Outbox& box, std::size_t bytes);

private:
    // The bytes of the kept announcements that the user has been sent or has queued.
    std::size_t Taken(const Outbox& box) const { return box.taken - announcedBegin_; }
    void Queue(Outbox& box, const Slice& slice) const;
    void CopySmallLast(Outbox& box) const;
    void CopyOut(Outbox& box) const;

    ByteCount total_ = std::make_shared<std::size_t>(0);
    BlockWriter personal_{total_};
    BlockWriter announcements_{total_};
    std::vector<Slice> announced_; // the announcements that some user may not have been sent yet
    std::uint64_t announcedBegin_ = 0;
    std::uint64_t announcedEnd_ = 0;
    std::vector<std::string_view> pending_;
};

} // namespace tarveth
