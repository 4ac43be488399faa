// The socket on real connections of this computer: connecting, sending, receiving, and every end.
#include "tests/net/LoopbackSocket.h"

#include <optional>

namespace tarveth {
namespace {

using Socket = LoopbackSocket;

TEST_F(Socket, TellsThePeersAddressWhenItHasConnected) {
    EXPECT_EQ(socket->PeerAddress(), kNoPeer);
    const PlainPeer peer = Connect();
    EXPECT_EQ(socket->PeerAddress(), "127.0.0.1");
    EXPECT_EQ(events, Events{"connect"});
}

TEST_F(Socket, LooksANameUpAndTriesItsAddressesInTurn) {
    BeginToConnect("localhost", listener.Port()); // on the address of the older kind alone is listened
    const PlainPeer peer = listener.Accept();
    EXPECT_TRUE(HasTold("connect"));
    EXPECT_EQ(socket->PeerAddress(), "127.0.0.1");
}

TEST_F(Socket, ConnectsFromTheLocalAddressAndPortAskedFor) {
    const int free = RefusingPort().Port();
    socket->LocalAddress = "127.0.0.1";
    socket->LocalPort = free;
    const PlainPeer peer = Connect();
    EXPECT_EQ(peer.RemotePort(), free);
}

TEST_F(Socket, HasNoPeerWhenTheConnectionIsRefused) {
    const RefusingPort refusing;
    BeginToConnect("127.0.0.1", refusing.Port());
    EXPECT_TRUE(HasTold("connect"));
    EXPECT_EQ(socket->PeerAddress(), kNoPeer);
}

TEST_F(Socket, HasNoPeerWhenNobodyKnowsTheName) {
    MakeSocket(1); // some systems take long to admit it
    BeginToConnect("does-not-exist.invalid", 9090);
    EXPECT_TRUE(HasTold("connect"));
    EXPECT_EQ(socket->PeerAddress(), kNoPeer);
}

TEST_F(Socket, HasNoPeerWhenTheHostKeepsSilent) {
    const SilentPort silent;
    MakeSocket(1);
    BeginToConnect("127.0.0.1", silent.Port());
    EXPECT_TRUE(HasTold("connect"));
    EXPECT_EQ(socket->PeerAddress(), kNoPeer);
}

TEST_F(Socket, CanBeCreatedAnewAfterAFailure) {
    const RefusingPort refusing;
    BeginToConnect("127.0.0.1", refusing.Port());
    EXPECT_TRUE(HasTold("connect"));
    events.clear();
    const PlainPeer peer = Connect();
    EXPECT_EQ(socket->PeerAddress(), "127.0.0.1");
}

TEST_F(Socket, CreatedAnewInItsOwnEventStillTellsTheNextOne) {
    const RefusingPort refusing;
    socket->ConnectEvent = [this] {
        events.emplace_back(socket->PeerAddress());
        if (events.size() == 1)
            BeginToConnect("127.0.0.1", listener.Port());
    };
    BeginToConnect("127.0.0.1", refusing.Port());
    EXPECT_TRUE(HasTold("0.0.0.0"));
    const PlainPeer peer = listener.Accept();
    EXPECT_TRUE(HasTold("127.0.0.1"));
    EXPECT_EQ(events, (Events{"0.0.0.0", "127.0.0.1"}));
}

TEST_F(Socket, ReceivesWhatThePeerSaysInItsOrder) {
    const PlainPeer peer = Connect();
    for (const char* word : {"one ", "two ", "three"})
        peer.Say(word);
    EXPECT_TRUE(owner.RunUntil([this] { return text == "one two three"; }));
}

TEST_F(Socket, TellsOfDataOnceUntilItIsReceived) {
    socket->DataArrivalEvent = [this] { events.emplace_back("data"); };
    PlainPeer peer = Connect();
    peer.Say("one");
    EXPECT_TRUE(HasTold("data"));
    peer.Say("two");
    peer.Close();
    text = socket->Receive();
    socket->DataArrivalEvent = [this] { text += socket->Receive(); };
    EXPECT_TRUE(HasTold("close"));
    EXPECT_EQ(text, "onetwo");
    EXPECT_EQ(events, (Events{"connect", "data", "close"}));
}

TEST_F(Socket, SendsWhatItIsGivenInItsOrder) {
    const PlainPeer peer = Connect();
    Send("one ");
    Send("two ");
    Send("three");
    EXPECT_EQ(peer.Hear(13), "one two three");
}

TEST_F(Socket, SendsNothingWhileThereIsNoConnection) {
    Send("too early");
    BeginToConnect("127.0.0.1", listener.Port());
    Send("too early");
    const PlainPeer peer = listener.Accept();
    EXPECT_TRUE(HasTold("connect"));
    Send("now");
    EXPECT_EQ(peer.Hear(3), "now");
}

TEST_F(Socket, CarriesLargeTextsBothWays) {
    const PlainPeer peer = Connect();
    const std::string down = Bytes(16 * kMebibyte);
    std::size_t said = 0;
    EXPECT_TRUE(owner.RunUntil([&] {
        if (text.size() == said && said < down.size()) {
            peer.Say(std::string_view(down).substr(said, kMebibyte / 4));
            said += kMebibyte / 4;
        }
        return text.size() == down.size();
    }));
    EXPECT_TRUE(text == down);

    const std::string up = Bytes(kMebibyte);
    Send(up);
    EXPECT_TRUE(peer.Hear(up.size()) == up);
}

TEST_F(Socket, TellsOfTheLastDataBeforeTheClose) {
    PlainPeer peer = Connect();
    peer.Say("farewell");
    peer.Close();
    EXPECT_TRUE(HasTold("close"));
    EXPECT_EQ(text, "farewell");
    EXPECT_EQ(events, (Events{"connect", "data", "close"}));
    EXPECT_EQ(socket->PeerAddress(), kNoPeer);
}

TEST_F(Socket, TellsOfTheLastDataEvenIfSendingHasFailed) {
    socket->DataArrivalEvent = [this] { events.emplace_back("data"); };
    PlainPeer peer = Connect();
    const std::string farewell = Bytes(1000);
    for (const char c : farewell) // in more pieces than are read ahead
        peer.Say({&c, 1});
    peer.Close();
    EXPECT_TRUE(HasTold("data"));
    for (int i = 0; i < 3; ++i) // the first is answered with a reset, and so the next one fails
        Send("anyone there?");
    socket->DataArrivalEvent = [this] { text += socket->Receive(); };
    text = socket->Receive();
    EXPECT_TRUE(HasTold("close"));
    EXPECT_TRUE(text == farewell);
}

TEST_F(Socket, ClosesWhenThePeerResets) {
    PlainPeer peer = Connect();
    peer.Reset();
    EXPECT_TRUE(HasTold("close"));
}

TEST_F(Socket, ClosesWhenThePeerStopsWriting) {
    const PlainPeer peer = Connect();
    peer.StopWriting();
    EXPECT_TRUE(HasTold("close"));
    EXPECT_EQ(peer.HearToTheEnd(), "");
}

TEST_F(Socket, TakesNoMoreThanTwoPiecesThatNobodyReceives) {
    socket->DataArrivalEvent = [this] { events.emplace_back("data"); };
    const PlainPeer peer = Connect();
    const std::string flood = Bytes(48 * kMebibyte);
    const std::size_t taken =
        peer.SayWhatIsTaken(flood); // what the system itself buffers is beyond our power
    EXPECT_LT(taken, flood.size());
    EXPECT_TRUE(HasTold("data"));
    EXPECT_EQ(events, (Events{"connect", "data"}));
    text = socket->Receive();
    EXPECT_LE(text.size(), std::size_t{128} << 10);

    socket->DataArrivalEvent = [this] { text += socket->Receive(); };
    EXPECT_TRUE(owner.RunUntil([&] { return text.size() >= taken; }));
    EXPECT_TRUE(text == flood.substr(0, taken));
}

TEST_F(Socket, ClosesWhenThePeerTakesTooLittleOfWhatIsSent) {
    const PlainPeer peer = Connect();
    const std::string much = Bytes(kMebibyte / 4);
    for (int i = 0; i < 4000 && events.back() != "close"; ++i) {
        Send(much);
        owner.Run();
    }
    EXPECT_TRUE(HasTold("close"));
    EXPECT_EQ(socket->PeerAddress(), kNoPeer);
}

TEST_F(Socket, ClosesInsteadOfSendingMoreThanAMebibyteAtOnce) {
    const PlainPeer peer = Connect();
    Send(Bytes(kMebibyte + 1));
    EXPECT_TRUE(HasTold("close"));
    EXPECT_EQ(peer.HearToTheEnd(), "");
}

TEST_F(Socket, TellsTheNextEventWhenTheHandlerBeforeHasReturned) {
    socket->ConnectEvent = [this] {
        listener.Accept().Say("welcome");                                          // and closes
        EXPECT_TRUE(owner.RunUntil([runs = 0]() mutable { return ++runs == 2; })); // as a message box does
        events.emplace_back("connected");
    };
    BeginToConnect("127.0.0.1", listener.Port());
    EXPECT_TRUE(HasTold("close"));
    EXPECT_EQ(events, (Events{"connected", "data", "close"}));
}

// What Connect and CreateSocket refuse.

struct RefusedSocket : Socket {
    std::optional<int> ErrorOfConnect() {
        try {
            socket->Connect();
        } catch (const SocketError& error) {
            EXPECT_STRNE(error.what(), "");
            return error.Number();
        }
        return std::nullopt;
    }
};

TEST_F(RefusedSocket, MustBeCreatedBeforeItConnects) {
    socket->RemoteHost = "127.0.0.1";
    socket->RemotePort = listener.Port();
    EXPECT_EQ(ErrorOfConnect(), 10038);
}

TEST_F(RefusedSocket, NeedsAHost) {
    socket->RemotePort = listener.Port();
    socket->CreateSocket();
    EXPECT_EQ(ErrorOfConnect(), 10039);
}

TEST_F(RefusedSocket, NeedsAPortThatThereIs) {
    socket->RemoteHost = "127.0.0.1";
    for (const int port : {-1, 0, 65536}) {
        socket->RemotePort = port;
        socket->CreateSocket();
        EXPECT_EQ(ErrorOfConnect(), 10049) << port;
    }
}

TEST_F(RefusedSocket, ConnectsOnce) {
    const PlainPeer peer = Connect();
    EXPECT_EQ(ErrorOfConnect(), 10037);
}

TEST_F(RefusedSocket, IsCreatedForAnAddressAndAPortThatThereAre) {
    socket->LocalAddress = "nowhere";
    EXPECT_THROW(socket->CreateSocket(), SocketError);
    socket->LocalAddress = "0.0.0.0";
    socket->LocalPort = 65536;
    EXPECT_THROW(socket->CreateSocket(), SocketError);
    socket->LocalPort = 0;
    EXPECT_NO_THROW(socket->CreateSocket());
}

} // namespace
} // namespace tarveth
