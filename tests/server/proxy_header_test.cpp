// Tests of the header that a proxy puts in front of a connection's bytes.
#include "server/ProxyHeader.h"

#include <gtest/gtest.h>

#include <string>

namespace tarveth {
namespace {

using State = ProxyHeader::State;

const std::string kSignature("\r\n\r\n\0\r\nQUIT\n", 12);
const std::string kIPv4 =
    kSignature + std::string("\x21\x11\x00\x0C\xC0\x00\x02\x01\xC0\x00\x02\x02\xDC\x04\x23\x82", 16);

std::string ClientOf(const std::string& bytes) {
    const ProxyHeader header = ReadProxyHeader(bytes);
    EXPECT_EQ(header.state, State::Complete);
    return header.client ? AddressText(*header.client) : "nobody";
}

TEST(ProxyHeader, OfVersion2NamesTheClient) {
    EXPECT_EQ(ClientOf(kIPv4 + "rest"), "192.0.2.1");
    EXPECT_EQ(ReadProxyHeader(kIPv4 + "rest").size, kIPv4.size());
    std::string addresses("\x20\x01\x0D\xB8", 4);
    addresses += std::string(11, '\0') + "\x07" + std::string(20, '\0');
    EXPECT_EQ(ClientOf(kSignature + std::string("\x21\x21\x00\x24", 4) + addresses), "2001:db8::7");
}

TEST(ProxyHeader, OfVersion2MayHoldMoreThanTheAddresses) {
    std::string header = kIPv4 + "\x04\x01\x02";
    header[15] = 15;
    EXPECT_EQ(ClientOf(header), "192.0.2.1");
    EXPECT_EQ(ReadProxyHeader(header).size, header.size());
}

TEST(ProxyHeader, OfAConnectionOfTheProxyItselfNamesNobody) {
    EXPECT_EQ(ClientOf(kSignature + std::string("\x20\x00\x00\x00", 4)), "nobody");
    EXPECT_EQ(ClientOf(kSignature + std::string("\x21\x00\x00\x00", 4)), "nobody");
}

TEST(ProxyHeader, OfVersion1NamesTheClient) {
    const std::string line = "PROXY TCP4 192.0.2.1 192.0.2.2 56324 9090\r\n";
    EXPECT_EQ(ClientOf(line + "rest"), "192.0.2.1");
    EXPECT_EQ(ReadProxyHeader(line + "rest").size, line.size());
    EXPECT_EQ(ClientOf("PROXY TCP6 2001:db8::7 2001:db8::8 56324 9090\r\n"), "2001:db8::7");
    EXPECT_EQ(ClientOf("PROXY UNKNOWN\r\n"), "nobody");
}

TEST(ProxyHeader, IsReadWhenItIsComplete) {
    for (const std::string& whole : {kIPv4, std::string("PROXY TCP4 192.0.2.1 192.0.2.2 56324 9090\r\n")})
        for (std::size_t size = 0; size < whole.size(); ++size)
            EXPECT_EQ(ReadProxyHeader(whole.substr(0, size)).state, State::Incomplete) << size;
}

TEST(ProxyHeader, AnythingElseIsBroken) {
    std::string version3 = kIPv4;
    version3[12] = '\x31';
    std::string command = kIPv4;
    command[12] = '\x22';
    std::string tooShort = kIPv4;
    tooShort[15] = 4;
    std::string tooLong = kIPv4;
    tooLong[14] = '\x7F';
    for (const std::string& bytes :
         {version3, command, tooShort, tooLong, std::string("\251clientver(2.6.4)"), std::string("PROXX"),
          std::string("PROXY TCP4 nonsense 1 2 3\r\n"), "PROXY TCP4 " + std::string(200, ' ')})
        EXPECT_EQ(ReadProxyHeader(bytes).state, State::Broken) << bytes;
}

} // namespace
} // namespace tarveth
