#include "server/ProxyHeader.h"

#include <algorithm>

namespace tarveth {

namespace {

constexpr std::string_view kSignature1 = "PROXY ";
constexpr std::size_t kLongestLine = 107; // of version 1, with its line end
constexpr std::string_view kSignature2("\r\n\r\n\0\r\nQUIT\n", 12);
constexpr std::size_t kFixedPart = 16; // of version 2: signature, command, family, length

constexpr unsigned kVersion2 = 2;
constexpr unsigned kLocal = 0; // the connection is the proxy's own
constexpr unsigned kProxy = 1;
constexpr unsigned kTcpOverIPv4 = 0x11;
constexpr unsigned kTcpOverIPv6 = 0x21;
constexpr std::size_t kIPv4Bytes = 4;
constexpr std::size_t kIPv6Bytes = 16;
constexpr std::size_t kIPv4Addresses = 12; // both addresses and ports
constexpr std::size_t kIPv6Addresses = 36;

ProxyHeader Broken() {
    return {ProxyHeader::State::Broken, 0, std::nullopt};
}

std::string_view TakeWord(std::string_view& line) {
    const std::size_t end = std::min(line.find(' '), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return word;
}

// "PROXY TCP4 192.0.2.1 192.0.2.2 56324 9090": the client's address is the first.
ProxyHeader ReadLine(std::string_view bytes) {
    const std::size_t end = bytes.substr(0, kLongestLine).find("\r\n");
    if (end == std::string_view::npos)
        return bytes.size() < kLongestLine ? ProxyHeader{} : Broken();
    ProxyHeader header{ProxyHeader::State::Complete, end + 2, std::nullopt};
    std::string_view line = bytes.substr(kSignature1.size(), end - kSignature1.size());
    const std::string_view family = TakeWord(line);
    if (family == "UNKNOWN")
        return header;
    header.client = ParseAddress(TakeWord(line));
    const bool known = family == "TCP4" || family == "TCP6";
    return known && header.client ? header : Broken();
}

unsigned ByteAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

ClientAddress AddressAt(std::string_view bytes, std::size_t size) {
    ClientAddress address;
    if (size == kIPv4Bytes)
        address.bytes[10] = address.bytes[11] = 0xFF; // the IPv4-mapped form
    std::copy_n(bytes.begin() + kFixedPart, size, address.bytes.end() - static_cast<std::ptrdiff_t>(size));
    return address;
}

ProxyHeader ReadBinary(std::string_view bytes) {
    if (bytes.size() < kFixedPart)
        return {};
    const unsigned version = ByteAt(bytes, 12) >> 4U;
    const unsigned command = ByteAt(bytes, 12) & 0xFU;
    const unsigned family = ByteAt(bytes, 13);
    const std::size_t length = std::size_t{ByteAt(bytes, 14)} << 8U | ByteAt(bytes, 15);
    if (version != kVersion2 || command > kProxy || kFixedPart + length > kLongestProxyHeader)
        return Broken();
    if (bytes.size() < kFixedPart + length)
        return {};
    ProxyHeader header{ProxyHeader::State::Complete, kFixedPart + length, std::nullopt};
    if (command == kLocal)
        return header;
    if (family == kTcpOverIPv4 && length >= kIPv4Addresses)
        header.client = AddressAt(bytes, kIPv4Bytes);
    else if (family == kTcpOverIPv6 && length >= kIPv6Addresses)
        header.client = AddressAt(bytes, kIPv6Bytes);
    else if (family == kTcpOverIPv4 || family == kTcpOverIPv6)
        return Broken();
    return header;
}

bool BeginsLike(std::string_view bytes, std::string_view signature) {
    const std::size_t size = std::min(bytes.size(), signature.size());
    return bytes.substr(0, size) == signature.substr(0, size);
}

} // namespace

ProxyHeader ReadProxyHeader(std::string_view bytes) {
    if (BeginsLike(bytes, kSignature2))
        return ReadBinary(bytes);
    if (!BeginsLike(bytes, kSignature1))
        return Broken();
    return bytes.size() < kSignature1.size() ? ProxyHeader{} : ReadLine(bytes);
}

} // namespace tarveth
