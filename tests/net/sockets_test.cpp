// Choosing a server, connecting to it, and what goes out and comes in.
#include "net/modSockets.h"

#include "tests/net/FakeSocket.h"
#include "tests/net/RecordingClient.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

struct Sockets : testing::Test {
    FakeSocket socket;
    NetGame net;
    test::RecordingClient desk;
    modSockets sockets{socket, net, desk, desk};
};

using Texts = std::vector<std::string>;

TEST_F(Sockets, ConnectToPort9090OfTheServerChosen) {
    desk.server = "lobby.example";
    socket.LocalPort = 5;
    EXPECT_TRUE(sockets.ConnectToServer());
    EXPECT_EQ(socket.calls, (Texts{"CreateSocket", "Connect lobby.example:9090"}));
    EXPECT_EQ(socket.LocalAddress, "0.0.0.0");
    EXPECT_EQ(socket.LocalPort, 0);
    EXPECT_EQ(desk.boxes, Texts{});
}

TEST_F(Sockets, WithAServerChosenTheLocalPlayerIsBlueAndANetworkGameMayBegin) {
    desk.server = "127.0.0.1";
    net.PlayingBlue = false;
    sockets.ConnectToServer();
    EXPECT_TRUE(net.NetConnected);
    EXPECT_TRUE(net.PlayingBlue);
    EXPECT_FALSE(net.InGame);
}

TEST_F(Sockets, WithoutAServerThereIsNoConnection) {
    net.NetConnected = true;
    net.PlayingBlue = false;
    desk.server.clear();
    EXPECT_FALSE(sockets.ConnectToServer());
    EXPECT_FALSE(net.NetConnected);
    EXPECT_FALSE(net.PlayingBlue);
    EXPECT_EQ(socket.calls, Texts{});
    EXPECT_FALSE(desk.waiting);
    EXPECT_EQ(desk.boxes, Texts{});
}

TEST_F(Sockets, ShowThatTheyWaitUntilTheConnectEvent) {
    desk.server = "127.0.0.1";
    sockets.ConnectToServer();
    EXPECT_TRUE(desk.waiting);
    socket.TellConnected();
    EXPECT_TRUE(sockets.Connected());
    EXPECT_FALSE(desk.waiting);
    EXPECT_EQ(desk.boxes, Texts{});
}

TEST_F(Sockets, AServerThatCannotBeReachedGivesABoxAndNothingWaitsAnyMore) {
    desk.server = "127.0.0.1";
    sockets.ConnectToServer();
    socket.TellNotConnected();
    EXPECT_FALSE(sockets.Connected());
    EXPECT_EQ(desk.boxes, Texts{"|Could not connect."});
    EXPECT_FALSE(desk.waiting);
}

TEST_F(Sockets, AnErrorOfConnectIsShownInItsOwnWords) {
    desk.server = "127.0.0.1";
    socket.failure = SocketError(10049, "There is no such port.");
    EXPECT_TRUE(sockets.ConnectToServer());
    EXPECT_EQ(desk.boxes, Texts{"|There is no such port."});
    EXPECT_TRUE(net.NetConnected);
    EXPECT_FALSE(desk.waiting);
}

TEST_F(Sockets, ConnectingThatWouldBlockIsNoError) {
    desk.server = "127.0.0.1";
    socket.failure = SocketError(kWouldBlock, "Operation would block.");
    EXPECT_TRUE(sockets.ConnectToServer());
    EXPECT_EQ(desk.boxes, Texts{});
    EXPECT_TRUE(desk.waiting);
}

TEST_F(Sockets, ASocketThatCannotBeCreatedIsToldOf) {
    desk.server = "127.0.0.1";
    socket.createFailure = SocketError(10055, "No room.");
    EXPECT_TRUE(sockets.ConnectToServer());
    EXPECT_EQ(desk.boxes, Texts{"|No room."});
    EXPECT_EQ(socket.calls, Texts{"CreateSocket"});
}

TEST_F(Sockets, SendAMessageBehindTheMarkerAndRawTextAsItIs) {
    sockets.SendMessage("nick(Ann)");
    sockets.SendRawText("hello");
    EXPECT_EQ(socket.sent, (Texts{"\251nick(Ann)", "hello"}));
}

TEST_F(Sockets, ReceiveWhatHasCome) {
    socket.TellData("\251update");
    socket.TellData("(2.6.4)");
    EXPECT_EQ(sockets.Receive(), "\251update(2.6.4)");
    EXPECT_EQ(sockets.Receive(), "");
}

TEST_F(Sockets, IgnoreALoneCarriageReturn) {
    socket.TellData("\r");
    EXPECT_EQ(sockets.Receive(), "");
    socket.TellData("\r\n");
    EXPECT_EQ(sockets.Receive(), "\r\n");
    socket.TellData("\r\r");
    EXPECT_EQ(sockets.Receive(), "\r\r");
}

} // namespace
} // namespace tarveth
