#include "server/AddressBook.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

using namespace std::chrono_literals;

constexpr Time kStart = Time{} + 1h;

struct Addresses : testing::Test {
    AddressBook book;
    Limits limits;
    Addresses() { limits.perAddress = 2; }

    bool Admits(const std::string& address, Time now = kStart) {
        const auto admission = book.Admit(*ParseAddress(address), limits, now);
        if (const auto* entry = std::get_if<AddressEntry*>(&admission))
            last = *entry;
        return std::holds_alternative<AddressEntry*>(admission);
    }
    AddressEntry* last = nullptr;
};

TEST_F(Addresses, AnAddressHasAtMostTheGivenNumberOfConnections) {
    EXPECT_TRUE(Admits("192.0.2.1"));
    EXPECT_TRUE(Admits("::ffff:192.0.2.1"));
    EXPECT_FALSE(Admits("192.0.2.1"));
    EXPECT_TRUE(Admits("192.0.2.2"));
}

TEST_F(Addresses, TheAddressesOfAnIPv6NetworkOf64BitsCountAsOne) {
    EXPECT_TRUE(Admits("2001:db8::1"));
    EXPECT_TRUE(Admits("2001:db8:0:0:ffff::2"));
    EXPECT_FALSE(Admits("2001:db8::3"));
    EXPECT_TRUE(Admits("2001:db8:0:1::1"));
}

TEST_F(Addresses, AConnectionThatEndsMakesRoomForAnother) {
    EXPECT_TRUE(Admits("192.0.2.1"));
    EXPECT_TRUE(Admits("192.0.2.1"));
    AddressBook::Leave(last, kStart);
    EXPECT_TRUE(Admits("192.0.2.1"));
}

TEST_F(Addresses, UnusedEntriesAreForgotten) {
    for (int i = 0; i < 5000; ++i) {
        ASSERT_TRUE(
            Admits("10.0." + std::to_string(i / 250) + "." + std::to_string(i % 250), kStart + i * 1s));
        AddressBook::Leave(last, kStart + i * 1s);
    }
    EXPECT_LT(book.Size(), 1100U);
}

TEST_F(Addresses, TextAndValueAgree) {
    for (const char* text : {"192.0.2.1", "127.0.0.1", "2001:db8::1", "::1"})
        EXPECT_EQ(AddressText(*ParseAddress(text)), text);
    EXPECT_EQ(AddressText(*ParseAddress("::ffff:192.0.2.1")), "192.0.2.1");
    EXPECT_EQ(ParseAddress("nowhere"), std::nullopt);
    EXPECT_TRUE(ParseAddress("127.9.9.9")->IsLoopback());
    EXPECT_TRUE(ParseAddress("::1")->IsLoopback());
    EXPECT_FALSE(ParseAddress("128.0.0.1")->IsLoopback());
}

} // namespace
} // namespace tarveth
