// Floods from one address over real sockets: neither many connections nor reconnecting renews a limit.
#include "tests/server/LobbyProgram.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarveth {
namespace {

struct Flood : testing::Test {
    // Loopback addresses are counted, as others are. The watcher has an address of its own.
    LobbyProgram program{{"--exempt-loopback=false", "--arrivals", "200", "--messages", "9000"}};
    LobbyClient watcher{program, "Watcher", 0, "127.0.0.2"};

    // Lets 50 clients of one address connect one after the other, each saying the same; gives what the
    // watcher hears until all have left.
    std::string FloodWith(const std::string& text) {
        for (int i = 0; i < 50; ++i) {
            const std::string nick = "Flooder " + std::to_string(i);
            LobbyClient client(program, 0, "127.0.0.3");
            client.Say("\251clientver(2.6.4)\251nick(" + nick + ")\251sendnicks()");
            client.HearUntil("nickname set to ");
            for (int j = 0; j < 20; ++j)
                client.Say(text);
            client.StopWriting();
            client.HearToTheEnd();
        }
        LobbyClient last(program, "Last of all", 0, "127.0.0.4");
        return watcher.HearUntil("\251addnick(Last of all,0)");
    }
    static int Count(const std::string& heard, std::string_view what) {
        int count = 0;
        for (std::size_t at = heard.find(what); at != std::string::npos; at = heard.find(what, at + 1))
            ++count;
        return count;
    }
};

// The figures leave room for what an address may do again while the test runs.
TEST_F(Flood, OfChatLinesIsCutToTheLinesOfOneUser) {
    const int lines = Count(FloodWith("spam\r\n"), ": spam");
    EXPECT_GE(lines, 1);
    EXPECT_LE(lines, 20);
}

TEST_F(Flood, OfInvitationsIsCutToThoseOfOneUser) {
    const int invitations = Count(FloodWith("\251invite(Watcher,x)\251end(Watcher,x)"), "\251invite(");
    EXPECT_GE(invitations, 1);
    EXPECT_LE(invitations, 8);
}

TEST_F(Flood, OfRenamesIsCutToThoseOfOneUser) {
    const int renames = Count(FloodWith("\251nick(This)\251nick(That)"), "\251changenick(");
    EXPECT_GE(renames, 1);
    EXPECT_LE(renames, 12);
}

TEST(Arrivals, BeyondTenInAMinuteAreRefusedWithASentence) {
    const LobbyProgram program({"--exempt-loopback=false"});
    for (int i = 0; i < 10; ++i)
        EXPECT_NE(LobbyClient(program, 0, "127.0.0.3").HearUntil("\251update("), "");
    EXPECT_EQ(LobbyClient(program, 0, "127.0.0.3").HearToTheEnd(),
              "\251alert(Your address has connected too often. Please try again in a minute.)");
    EXPECT_NE(LobbyClient(program, 0, "127.0.0.4").HearUntil("\251update("), "");
}

TEST(Connections, OfOneAddressAreEightUnlessLoopbackIsExempt) {
    const LobbyProgram program({"--exempt-loopback=false"});
    std::vector<LobbyClient> clients;
    for (int i = 0; i < 8; ++i) {
        clients.emplace_back(program, 0, "127.0.0.3");
        EXPECT_NE(clients.back().HearUntil("\251update("), "");
    }
    EXPECT_EQ(LobbyClient(program, 0, "127.0.0.3").HearToTheEnd(),
              "\251alert(There are too many connections from your address.)");
}

TEST(Garbage, IsReadSlowlyAndItsSenderPutOut) {
    LobbyProgram program({"--exempt-loopback=false", "--useless-bytes", "2000"});
    LobbyClient watcher(program, "Watcher", 0, "127.0.0.2");
    LobbyClient flooder(program, "Flooder", 0, "127.0.0.3");
    std::string garbage;
    for (int i = 0; i < 60000; ++i)
        garbage += static_cast<char>('a' + i % 23);
    garbage += '\n';
    flooder.Say(garbage);
    for (int i = 0; i < 300; ++i)
        flooder.Say("\251nonsense()");
    EXPECT_NE(flooder.HearUntil("so the lobby has closed your connection.)"), "");
    EXPECT_NE(watcher.HearUntil("\251removenick(Flooder)"), "");
}

} // namespace
} // namespace tarveth
