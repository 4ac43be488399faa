#include "net/AsyncSocket.h"

#include "net/SocketThread.h"

#include <deque>
#include <limits>
#include <system_error>
#include <utility>

namespace tarveth {

namespace {

constexpr int kAlreadyInUse = 10037;
constexpr int kNoSocket = 10038;
constexpr int kNoDestination = 10039;
constexpr int kBadAddress = 10049;
constexpr int kNoRoom = 10055;

std::uint16_t PortFrom(int port, int lowest) {
    if (port < lowest || port > std::numeric_limits<std::uint16_t>::max())
        throw SocketError(kBadAddress, "There is no port " + std::to_string(port) + '.');
    return static_cast<std::uint16_t>(port);
}

asio::ip::address AddressFrom(const std::string& text) {
    asio::error_code failure;
    asio::ip::address address = asio::ip::make_address(text.empty() ? "0.0.0.0" : text, failure);
    if (failure)
        throw SocketError(kBadAddress, text + " is not an address of this computer.");
    return address;
}

// The owner's side: what the thread tells is handed over, and told when the handler before has returned.
class AsioSocket : public AsyncSocket {
public:
    AsioSocket(PostToOwner post, int connectSeconds)
        : post_(std::move(post)), connectSeconds_(connectSeconds) {}
    ~AsioSocket() override { Close(); }
    AsioSocket(const AsioSocket&) = delete;
    AsioSocket& operator=(const AsioSocket&) = delete;

    void CreateSocket() override;
    void Connect() override;
    void Send() override;
    std::string Receive() override { return thread_ ? thread_->Receive() : std::string(); }
    std::string PeerAddress() const override { return peer_; }

private:
    struct Due {
        SocketEvent event;
        std::string peer;
    };

    void Close();
    SocketThread::Tell Teller();
    void TellDue();
    std::function<void()> HandlerOf(const Due& due);

    PostToOwner post_;
    int connectSeconds_;
    bool created_ = false;
    asio::ip::tcp::endpoint local_;
    std::shared_ptr<SocketThread> thread_;
    std::shared_ptr<const char> connection_; // events that are under way when it goes are void
    std::string peer_{kNoPeer};
    std::deque<Due> due_;
    bool telling_ = false; // a handler may let events run; these wait until it has returned
};

void AsioSocket::CreateSocket() {
    Close();
    local_ = {AddressFrom(LocalAddress), PortFrom(LocalPort, 0)};
    created_ = true;
}

void AsioSocket::Connect() {
    if (!created_)
        throw SocketError(kNoSocket, "No socket has been created.");
    if (thread_)
        throw SocketError(kAlreadyInUse, "The socket is in use already.");
    if (RemoteHost.empty())
        throw SocketError(kNoDestination, "No server has been named.");
    const std::uint16_t port = PortFrom(RemotePort, 1);
    connection_ = std::make_shared<const char>();
    try {
        thread_ =
            SocketThread::Start({RemoteHost, port, local_, std::chrono::seconds(connectSeconds_)}, Teller());
    } catch (const std::system_error& error) {
        throw SocketError(kNoRoom, std::string("The system has no socket to spare: ") + error.what());
    }
}

void AsioSocket::Send() {
    if (peer_ != kNoPeer && !SendBuffer.empty())
        thread_->Send(SendBuffer);
}

void AsioSocket::Close() {
    connection_.reset();
    if (thread_)
        thread_->Abandon();
    thread_.reset();
    due_.clear();
    telling_ = false;
    peer_ = kNoPeer;
    created_ = false;
}

SocketThread::Tell AsioSocket::Teller() {
    return [this, post = post_, connection = std::weak_ptr(connection_)](SocketEvent event,
                                                                         const std::string& peer) {
        post([this, connection, due = Due{event, peer}] {
            if (connection.expired())
                return;
            due_.push_back(due);
            if (!telling_)
                TellDue();
        });
    };
}

void AsioSocket::TellDue() {
    const std::weak_ptr connection = connection_;
    telling_ = true;
    while (!due_.empty()) {
        const Due due = std::move(due_.front());
        due_.pop_front();
        const std::function<void()> handler = HandlerOf(due); // a copy: it may destroy the socket
        if (handler)
            handler();
        if (connection.expired())
            return;
    }
    telling_ = false;
}

std::function<void()> AsioSocket::HandlerOf(const Due& due) {
    if (due.event == SocketEvent::DataArrival)
        return DataArrivalEvent;
    peer_ = due.peer.empty() ? kNoPeer : due.peer;
    return due.event == SocketEvent::Connect ? ConnectEvent : CloseEvent;
}

} // namespace

std::unique_ptr<AsyncSocket> CreateAsyncSocket(PostToOwner post, int connectSeconds) {
    return std::make_unique<AsioSocket>(std::move(post), connectSeconds);
}

} // namespace tarveth
