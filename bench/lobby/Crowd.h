// Many clients of one server, on one thread, that speak the real protocol. Moves and chat lines are numbered,
// so that one that is lost, doubled or out of order is noticed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/epoll.h>

namespace tarveth {

class Crowd {
public:
    struct Member {
        int socket = -1;
        std::string kept;          // an incomplete message
        std::string unsent;        // what the socket did not take
        std::uint64_t markers = 0; // in all that it has been sent
        std::uint32_t sent = 0;    // number of its next move
        std::uint32_t heard = 0;   // number of its partner's next move
    };

    // Connects that many clients; the destructor closes them.
    // perAddress: how many come from one address of the loopback network; 0 for all from 127.0.0.1.
    Crowd(int port, std::size_t size, std::size_t perAddress = 0);
    ~Crowd();
    Crowd(const Crowd&) = delete;
    Crowd& operator=(const Crowd&) = delete;

    // Lets all clients complete the handshake at once, waits until each has been told of every other, and
    // gives the seconds that this took.
    double Join();
    // Lets each even client invite the next one, and returns when all are in a game and this has been
    // announced.
    void Pair();

    std::size_t Size() const { return members_.size(); }
    Member& At(std::size_t member) { return members_[member]; }
    static std::size_t PartnerOf(std::size_t member) { return member ^ 1U; }
    static std::string Nick(std::size_t member);

    // Waits once for data. hear(member, bytes) gets what was received, behind the incomplete rest of what was
    // received before, and returns how many of the bytes it has used.
    // most: of members to hear, so that a burst for all does not keep the caller from sending.
    using Hear = std::function<std::size_t(std::size_t, std::string_view)>;
    void Serve(int milliseconds, const Hear& hear, std::size_t most = kMostEvents);
    void Send(std::size_t member, std::string_view bytes);

    // Lets the system note when bytes arrive. Arrival then tells when those that are heard did, in
    // microseconds of the system's clock, however long the crowd took to read them.
    void StampArrivals();
    std::uint64_t Arrival() const { return arrival_; }

    // Appends the member's next move, which carries the time.
    void AppendMove(std::string& text, std::size_t member, std::uint64_t time);
    // Takes whole moves from the bytes, calls onMove(time) for each, and gives the bytes that they took.
    template <class OnMove>
    std::size_t TakeMoves(std::size_t member, std::string_view bytes, OnMove onMove);

    std::uint64_t Faults() const { return faults_; }

private:
    static constexpr std::size_t kMostEvents = 1024;

    ssize_t Receive(int socket);
    void ServeUntil(const std::function<bool()>& done, const Hear& hear);
    void Read(std::size_t member, const Hear& hear);
    void Retry(Member& member) const;
    void Watch(Member& member, std::uint32_t events, int operation) const;

    int epoll_;
    std::vector<Member> members_;
    std::vector<char> buffer_;
    std::uint64_t arrival_ = 0;
    std::uint64_t faults_ = 0;
};

template <class OnMove>
std::size_t Crowd::TakeMoves(std::size_t member, std::string_view bytes, OnMove onMove) {
    constexpr std::string_view kForm = "\251play(P00000,M(";
    std::size_t done = 0;
    for (;;) {
        const std::size_t end = bytes.find("))", done);
        if (end == std::string_view::npos)
            return done;
        std::uint64_t number = 0;
        std::uint64_t time = 0;
        std::size_t at = done + kForm.size();
        for (; at < end && bytes[at] != ','; ++at)
            number = number * 10 + static_cast<std::uint64_t>(bytes[at] - '0');
        for (at += 2; at < end; ++at)
            time = time * 10 + static_cast<std::uint64_t>(bytes[at] - '0');
        if (bytes[done] != kForm[0] || number != members_[member].heard++)
            ++faults_;
        done = end + 2;
        onMove(time);
    }
}

} // namespace tarveth
