// Looking names up. This program brings its own getaddrinfo: "slow.test" takes as long as the test likes, and
// "two.test" has two addresses, on the first of which nobody listens.
#include "tests/net/OwnerQueue.h"
#include "tests/net/PlainPeer.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <string>
#include <string_view>

#include <dlfcn.h>
#include <netdb.h>

namespace tarveth {
namespace {

class SlowLookUp {
public:
    // What the look-up does.
    void Run() {
        std::unique_lock lock(mutex_);
        ++running_;
        changed_.notify_all();
        changed_.wait(lock, [this] { return mayEnd_; });
        --running_;
        changed_.notify_all();
    }

    void WaitForBegin() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return running_ > 0; });
    }
    bool IsRunning() {
        const std::lock_guard lock(mutex_);
        return running_ > 0;
    }
    void End() {
        std::unique_lock lock(mutex_);
        mayEnd_ = true;
        changed_.notify_all();
        changed_.wait(lock, [this] { return running_ == 0; });
        mayEnd_ = false;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int running_ = 0;
    bool mayEnd_ = false;
};

SlowLookUp& TheSlowLookUp() {
    static SlowLookUp lookUp;
    return lookUp;
}

int LookUpAsTheSystemDoes(const char* host, const char* port, const addrinfo* hints, addrinfo** found) {
    static const auto system = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return system(host, port, hints, found);
}

int LookUpTwo(const char* port, const addrinfo* hints, addrinfo** found) {
    const int failure = LookUpAsTheSystemDoes("127.0.0.2", port, hints, found);
    return failure != 0 ? failure : LookUpAsTheSystemDoes("127.0.0.1", port, hints, &(*found)->ai_next);
}

struct LookUp : testing::Test {
    OwnerQueue owner;
    std::unique_ptr<AsyncSocket> socket;
    int connected = 0;

    void Connect(const std::string& host, int port, int connectSeconds = kConnectSeconds) {
        socket = CreateAsyncSocket(owner.Post(), connectSeconds);
        socket->ConnectEvent = [this] { ++connected; };
        socket->RemoteHost = host;
        socket->RemotePort = port;
        socket->CreateSocket();
        socket->Connect();
    }
};

TEST_F(LookUp, TriesTheNextAddressWhenOneRefuses) {
    const PlainListener listener;
    Connect("two.test", listener.Port());
    const PlainPeer peer = listener.Accept();
    EXPECT_TRUE(owner.RunUntil([this] { return connected == 1; }));
    EXPECT_EQ(socket->PeerAddress(), "127.0.0.1");
}

TEST_F(LookUp, DoesNotHoldUpTheOwnerWhoGoes) {
    Connect("slow.test", 9090);
    TheSlowLookUp().WaitForBegin();
    socket.reset();
    EXPECT_TRUE(TheSlowLookUp().IsRunning());
    TheSlowLookUp().End();
    owner.Run();
    EXPECT_EQ(connected, 0);
}

TEST_F(LookUp, ThatTakesTooLongIsNoConnection) {
    Connect("slow.test", 9090, 1);
    EXPECT_TRUE(owner.RunUntil([this] { return connected == 1; }));
    EXPECT_EQ(socket->PeerAddress(), kNoPeer);
    EXPECT_TRUE(TheSlowLookUp().IsRunning());
    TheSlowLookUp().End();
    owner.Run();
    EXPECT_EQ(connected, 1);
}

} // namespace
} // namespace tarveth

// In place of the system's.
extern "C" int getaddrinfo(const char* host, const char* port, const addrinfo* hints, addrinfo** found) {
    const std::string_view name = host != nullptr ? host : "";
    if (name == "two.test")
        return tarveth::LookUpTwo(port, hints, found);
    if (name != "slow.test")
        return tarveth::LookUpAsTheSystemDoes(host, port, hints, found);
    tarveth::TheSlowLookUp().Run();
    return EAI_NONAME;
}
