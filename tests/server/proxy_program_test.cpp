// Tests of addresses: IPv4 and IPv6 on one port, and proxies that name their clients in a header.
#include "tests/server/LobbyProgram.h"

#include <gtest/gtest.h>

#include <string>

namespace tarveth {
namespace {

const std::string kProxy = "127.0.0.9";

// A header of version 2 for a client of the network 2001:db8::/64.
std::string HeaderFor(char lastByteOfAddress) {
    return std::string("\r\n\r\n\0\r\nQUIT\n\x21\x21\x00\x24\x20\x01\x0D\xB8", 20) + std::string(11, '\0') +
           lastByteOfAddress + std::string(20, '\0');
}

struct Proxied : testing::Test {
    LobbyProgram program{{"--proxies", "203.0.113.0/24, " + kProxy, "--exempt-loopback=false",
                          "--per-address", "2", "--handshake", "2"}};
};

TEST_F(Proxied, TheClientsOwnAddressCounts) {
    LobbyClient ann(program, 0, kProxy);
    ann.Say(HeaderFor('\x07') + "\251clientver(2.6.4)\251nick(Ann)\251sendnicks()");
    EXPECT_NE(ann.HearUntil("\251addnick(Ann,0)"), "");
    EXPECT_NE(program.LogLineWith("2001:db8::7 is here as Ann"), "");
    LobbyClient bob(program, 0, kProxy);
    bob.Say(HeaderFor('\x08'));
    EXPECT_NE(bob.HearUntil("\251update("), "");
    LobbyClient third(program, 0, kProxy);
    third.Say(HeaderFor('\x09'));
    EXPECT_EQ(third.HearToTheEnd(), "\251alert(There are too many connections from your address.)");
    LobbyClient other(program, 0, kProxy);
    other.Say("PROXY TCP4 192.0.2.1 192.0.2.2 56324 9090\r\n");
    EXPECT_NE(other.HearUntil("\251update("), "");
    EXPECT_NE(program.LogLineWith("192.0.2.1 has connected"), "");
}

TEST_F(Proxied, TheHeaderMayComeInPieces) {
    LobbyClient ann(program, 0, kProxy);
    for (const char c : HeaderFor('\x07') + "\251clientver(2.6.4)\251nick(Ann)\251sendnicks()")
        ann.Say({&c, 1});
    EXPECT_NE(ann.HearUntil("\251addnick(Ann,0)"), "");
}

TEST_F(Proxied, AHeaderOfSomebodyElseIsNoHeader) {
    LobbyClient liar(program, 0, "127.0.0.8");
    EXPECT_NE(program.LogLineWith("127.0.0.8 has connected"), "");
    liar.Say(
        "PROXY TCP4 192.0.2.1 192.0.2.2 56324 9090\r\n\251clientver(2.6.4)\251nick(Liar)\251sendnicks()");
    EXPECT_NE(program.LogLineWith("127.0.0.8 is here as Liar"), "");
}

TEST_F(Proxied, AConnectionOfTheProxyWithoutAHeaderIsClosed) {
    LobbyClient wrong(program, 0, kProxy);
    wrong.Say("\251clientver(2.6.4)");
    EXPECT_NE(program.LogLineWith(kProxy + " was refused: it did not begin with a proxy's header"), "");
    const LobbyClient silent(program, 0, kProxy);
    EXPECT_NE(program.LogLineWith(kProxy + " was refused: the proxy's header did not come in time"), "");
    LobbyClient half(program, 0, kProxy);
    half.Say(HeaderFor('\x07').substr(0, 20));
    half.Close();
    EXPECT_NE(program.LogLineWith(kProxy + " was refused: the connection ended before the proxy's header"),
              "");
}

TEST(Families, BothAreServedOnOnePort) {
    LobbyProgram program({"--bind", "::"});
    LobbyClient ann(program, "Ann", 0, "127.0.0.2");
    EXPECT_NE(program.LogLineWith("127.0.0.2 is here as Ann"), "");
    try {
        LobbyClient bob(program, "Bob", 0, "::1");
        EXPECT_NE(ann.HearUntil("\251addnick(Bob,0)"), "");
        EXPECT_NE(program.LogLineWith("::1 is here as Bob"), "");
    } catch (const std::runtime_error&) {
        GTEST_SKIP() << "this system has no IPv6";
    }
}

} // namespace
} // namespace tarveth
