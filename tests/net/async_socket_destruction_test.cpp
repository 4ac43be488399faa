// Destroying the socket: nothing is told any more, whatever was under way.
#include "tests/net/LoopbackSocket.h"

#include <functional>

namespace tarveth {
namespace {

struct DestroyedSocket : LoopbackSocket {
    void DestroyIn(std::function<void()> AsyncSocket::*event) {
        socket.get()->*event = [this] {
            socket.reset();
            events.emplace_back("destroyed");
        };
    }
};

TEST_F(DestroyedSocket, CanBeDestroyedBeforeItIsConnected) {
    socket->CreateSocket();
    socket.reset();
    owner.Run();
    EXPECT_EQ(events, Events{});
}

TEST_F(DestroyedSocket, CanBeDestroyedWhileItLooksANameUp) {
    for (int i = 0; i < 20; ++i) {
        BeginToConnect(i % 2 == 0 ? "does-not-exist.invalid" : "localhost", listener.Port());
        MakeSocket();
    }
    socket.reset();
    owner.Run();
    EXPECT_EQ(events, Events{});
}

TEST_F(DestroyedSocket, CanBeDestroyedWhileItConnects) {
    const SilentPort silent;
    BeginToConnect("127.0.0.1", silent.Port());
    socket.reset();
    owner.Run();
    EXPECT_EQ(events, Events{});
}

TEST_F(DestroyedSocket, CanBeDestroyedWithEventsUnderWay) {
    BeginToConnect("127.0.0.1", listener.Port());
    PlainPeer peer = listener.Accept();
    peer.Say("welcome");
    socket.reset();
    owner.Run();
    EXPECT_EQ(events, Events{});
    EXPECT_EQ(peer.HearToTheEnd(), "");
}

TEST_F(DestroyedSocket, CanBeDestroyedWhileItIsFlooded) {
    socket->DataArrivalEvent = [this] { events.emplace_back("data"); };
    const PlainPeer peer = Connect();
    peer.Say(Bytes(kMebibyte / 2));
    EXPECT_TRUE(HasTold("data"));
    socket.reset();
    owner.Run();
    EXPECT_EQ(events, (Events{"connect", "data"}));
}

TEST_F(DestroyedSocket, CanBeDestroyedWhileThePeerDoesNotRead) {
    const PlainPeer peer = Connect();
    Send(Bytes(kMebibyte));
    socket.reset();
    owner.Run();
    EXPECT_EQ(events, Events{"connect"});
}

TEST_F(DestroyedSocket, CanBeDestroyedAfterItsEnd) {
    PlainPeer peer = Connect();
    peer.Close();
    EXPECT_TRUE(HasTold("close"));
    socket.reset();
    owner.Run();
    EXPECT_EQ(events, (Events{"connect", "close"}));
}

TEST_F(DestroyedSocket, CanBeDestroyedInTheConnectEvent) {
    DestroyIn(&AsyncSocket::ConnectEvent);
    BeginToConnect("127.0.0.1", listener.Port());
    listener.Accept().Say("welcome"); // and closes
    EXPECT_TRUE(HasTold("destroyed"));
    owner.Run();
    EXPECT_EQ(events, Events{"destroyed"});
}

TEST_F(DestroyedSocket, CanBeDestroyedInTheConnectEventOfAFailure) {
    const RefusingPort refusing;
    DestroyIn(&AsyncSocket::ConnectEvent);
    BeginToConnect("127.0.0.1", refusing.Port());
    EXPECT_TRUE(HasTold("destroyed"));
}

TEST_F(DestroyedSocket, CanBeDestroyedInTheDataEvent) {
    DestroyIn(&AsyncSocket::DataArrivalEvent);
    PlainPeer peer = Connect();
    peer.Say("welcome");
    peer.Close();
    EXPECT_TRUE(HasTold("destroyed"));
    owner.Run();
    EXPECT_EQ(events, (Events{"connect", "destroyed"}));
}

TEST_F(DestroyedSocket, CanBeDestroyedInTheCloseEvent) {
    DestroyIn(&AsyncSocket::CloseEvent);
    PlainPeer peer = Connect();
    peer.Close();
    EXPECT_TRUE(HasTold("destroyed"));
    owner.Run();
    EXPECT_EQ(events, (Events{"connect", "destroyed"}));
}

TEST_F(DestroyedSocket, DestroyedRightAfterASendStillSendsIt) {
    const PlainPeer peer = Connect();
    Send("one ");
    Send("two");
    socket.reset();
    EXPECT_EQ(peer.HearToTheEnd(), "one two");
}

} // namespace
} // namespace tarveth
