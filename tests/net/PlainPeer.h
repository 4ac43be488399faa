// The other end of a connection as plain as can be: a listener on a port that the system chose, and blocking
// reads and writes.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace tarveth {

class PlainPeer {
public:
    struct Connection;

    explicit PlainPeer(std::unique_ptr<Connection> connection);
    ~PlainPeer();
    PlainPeer(PlainPeer&& other) noexcept;
    PlainPeer& operator=(PlainPeer&&) = delete;

    void Say(std::string_view bytes) const;
    // Writes as much of the bytes as is taken: up to the moment when nothing more is for a second.
    std::size_t SayWhatIsTaken(std::string_view bytes) const;
    // The next bytes, so many or up to the end.
    std::string Hear(std::size_t size) const;
    std::string HearToTheEnd() const { return Hear(static_cast<std::size_t>(-1)); }
    int RemotePort() const;
    void StopWriting() const;
    // Closes so that the other end gets an error.
    void Reset();
    void Close();

private:
    std::unique_ptr<Connection> connection_;
};

// A port of which this has hold.
struct HeldPort;

class PlainListener {
public:
    explicit PlainListener(int backlog = 16);
    ~PlainListener();
    PlainListener(const PlainListener&) = delete;
    PlainListener& operator=(const PlainListener&) = delete;

    int Port() const;
    PlainPeer Accept() const;

private:
    std::unique_ptr<HeldPort> held_;
};

// A port on which nobody listens, nor will while this is there.
class RefusingPort {
public:
    RefusingPort();
    ~RefusingPort();
    RefusingPort(const RefusingPort&) = delete;
    RefusingPort& operator=(const RefusingPort&) = delete;

    int Port() const;

private:
    std::unique_ptr<HeldPort> held_;
};

// A port that doesn't answer at all.
class SilentPort {
public:
    SilentPort();

    int Port() const { return listener_.Port(); }

private:
    PlainPeer Knock() const;

    PlainListener listener_{0};
    PlainPeer first_; // these are never accepted, and there is no room for more
    PlainPeer second_;
};

} // namespace tarveth
