#include "server/AddressCount.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

using asio::ip::make_address;

TEST(AddressCount, AnAddressHasAtMostTheGivenNumberOfConnections) {
    AddressCount count(8);
    for (int i = 0; i < 8; ++i)
        EXPECT_TRUE(count.Enter(make_address("192.0.2.1")));
    EXPECT_FALSE(count.Enter(make_address("192.0.2.1")));
    EXPECT_FALSE(count.Enter(make_address("::ffff:192.0.2.1")));
    EXPECT_TRUE(count.Enter(make_address("192.0.2.2")));
}

TEST(AddressCount, AConnectionThatEndsMakesRoomForAnother) {
    AddressCount count(1);
    EXPECT_TRUE(count.Enter(make_address("2001:db8::1")));
    EXPECT_FALSE(count.Enter(make_address("2001:db8::1")));
    count.Leave(make_address("2001:db8::1"));
    EXPECT_TRUE(count.Enter(make_address("2001:db8::1")));
}

TEST(AddressCount, LoopbackAddressesAreNotCounted) {
    AddressCount count(1);
    for (const char* address : {"127.0.0.1", "127.9.9.9", "::1", "::ffff:127.0.0.1"})
        for (int i = 0; i < 100; ++i)
            EXPECT_TRUE(count.Enter(make_address(address))) << address;
    count.Leave(make_address("127.0.0.1"));
}

} // namespace
} // namespace tarveth
