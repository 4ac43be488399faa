// The network's side of a socket: looks the host up, connects, reads and writes, all on a thread of its own.
// The public calls are the owner's; none of them waits for the network.
#pragma once

#include "net/wire/asio.h"

#include <asio/executor_work_guard.hpp>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tarveth {

enum class SocketEvent { Connect, DataArrival, Close };

struct SocketTarget {
    std::string host; // a name or an address
    std::uint16_t port = 0;
    asio::ip::tcp::endpoint local; // an unspecified address, or port 0: any
    std::chrono::seconds patience{};
};

class SocketThread {
public:
    // Called on this thread, under a lock: it must neither wait nor call back. The peer is empty unless a
    // connection has been made.
    using Tell = std::function<void(SocketEvent event, const std::string& peer)>;

    // Begins to connect. Throws std::system_error if the system has no thread or descriptor to spare.
    static std::shared_ptr<SocketThread> Start(const SocketTarget& target, Tell tell);

    SocketThread(const SocketTarget& target, Tell tell);

    // Takes the text to be sent. When more than 1 MiB is unsent, the connection ends instead.
    void Send(const std::string& text);
    // Everything received since the last call, and leave to receive more.
    std::string Receive();
    // The last call. Nothing is told any more; what is unsent goes out as far as the system takes it at once,
    // and the connection ends.
    void Abandon();

private:
    using Clock = std::chrono::steady_clock;
    using Tcp = asio::ip::tcp;

    static constexpr std::size_t kMostUnsent = std::size_t{1} << 20;
    static constexpr std::size_t kChunkSize = std::size_t{64} << 10;
    static constexpr int kMostChunks = 2; // the one that the owner was told of, and a further one

    void Begin();
    void LookUp();
    void LookedUp(const Tcp::resolver::results_type& found);
    void TryNext();
    bool Open(const Tcp& protocol);
    void Tried(const asio::error_code& failure);
    void SetTimer(Clock::time_point due);
    void GiveUp();

    void Read();
    void Keep(std::size_t size);
    void Write();
    void Wrote(const asio::error_code& failure, std::size_t size);
    bool TakeUnsent();

    void Leave();
    void WriteWhatFits();
    void Fail(SocketEvent event);
    void End();

    // the thread's alone
    asio::io_context io_{1};
    asio::executor_work_guard<asio::io_context::executor_type> work_; // until the end
    Tcp::resolver resolver_;
    TcpSocket socket_;
    asio::steady_timer timer_;
    SocketTarget target_;
    Clock::time_point deadline_;
    std::vector<Tcp::endpoint> untried_; // the next one last
    std::array<char, kChunkSize> chunk_{};
    std::string sending_;
    std::size_t sent_ = 0; // of sending_
    bool writing_ = false;
    bool unwritable_ = false;
    bool leaving_ = false; // the owner has gone
    bool ended_ = false;

    std::thread thread_; // the owner's

    std::mutex mutex_; // guards what follows
    Tell tell_;        // none once the owner has gone
    bool lookingUp_ = false;
    bool reading_ = false;
    std::string received_;
    int chunks_ = 0;       // in received_
    std::string outgoing_; // not yet in sending_
    std::size_t unsent_ = 0;
};

} // namespace tarveth
