// An asynchronous TCP client: a few properties, four methods, three events. Texts are bytes.
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarveth {

// What Connect or CreateSocket raises.
class SocketError : public std::runtime_error {
public:
    SocketError(int number, const std::string& description)
        : std::runtime_error(description), number_(number) {}
    // As Windows Sockets numbers them.
    int Number() const { return number_; }

private:
    int number_;
};

inline constexpr int kWouldBlock = 10035;              // no error: the answer comes with the connect event
inline constexpr std::string_view kNoPeer = "0.0.0.0"; // PeerAddress while there is no connection

class AsyncSocket {
public:
    virtual ~AsyncSocket() = default; // closes; no event comes any more

    std::string RemoteHost; // a name or an address; empty: no server was chosen
    int RemotePort = 0;
    std::string LocalAddress; // "0.0.0.0": any
    int LocalPort = 0;        // 0: any

    std::string SendBuffer; // what Send transmits

    virtual void CreateSocket() = 0;
    // Begins to connect; the connect event tells the end of it. Throws SocketError.
    virtual void Connect() = 0;
    // Transmits SendBuffer after everything sent before. Never blocks; does nothing when not connected.
    virtual void Send() = 0;
    // Everything received since the last call. Until it is called no further data event comes.
    virtual std::string Receive() = 0;
    virtual std::string PeerAddress() const = 0;

    // The events; told one at a time on the thread that owns the socket, never from within a method of it.
    std::function<void()> ConnectEvent;
    std::function<void()> DataArrivalEvent;
    std::function<void()> CloseEvent; // the last one
};

// Hands a function over to the thread that owns the socket, to be called there soon. May be called on any
// thread.
using PostToOwner = std::function<void(std::function<void()>)>;

inline constexpr int kConnectSeconds = 20; // look-up included; then a host that keeps silent has not answered

std::unique_ptr<AsyncSocket> CreateAsyncSocket(PostToOwner post, int connectSeconds = kConnectSeconds);

} // namespace tarveth
