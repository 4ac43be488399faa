#include "server/AddressRange.h"

#include "text/trim.h"

#include <algorithm>
#include <charconv>

namespace tarveth {

namespace {

constexpr unsigned kBits = 128;
constexpr unsigned kMappedBits = 96; // in front of an IPv4 address in its IPv4-mapped form
constexpr unsigned kByteBits = 8;
constexpr unsigned kLimitBits = 64;

std::optional<unsigned> ParseBits(std::string_view text, unsigned most) {
    unsigned bits = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), bits);
    if (error != std::errc() || end != text.data() + text.size() || bits > most)
        return std::nullopt;
    return bits;
}

} // namespace

bool AddressRange::Holds(const ClientAddress& address) const {
    return RangeOf(address, bits) == *this;
}

AddressRange RangeOf(const ClientAddress& address, unsigned bits) {
    AddressRange range{address, bits};
    for (unsigned i = 0; i < range.first.bytes.size(); ++i) {
        const unsigned kept = std::min(kByteBits, bits - std::min(bits, i * kByteBits));
        std::uint8_t& byte = range.first.bytes.at(i);
        byte = static_cast<std::uint8_t>(byte & (0xFFU << (kByteBits - kept)));
    }
    return range;
}

AddressRange LimitRange(const ClientAddress& address) {
    return RangeOf(address, address.IsIPv4() ? kBits : kLimitBits);
}

std::optional<AddressRange> ParseRange(std::string_view text) {
    const std::size_t slash = text.find('/');
    const std::string_view name = text.substr(0, slash);
    const auto address = ParseAddress(name);
    if (!address)
        return std::nullopt;
    const unsigned before = name.find(':') == std::string_view::npos ? kMappedBits : 0;
    if (slash == std::string_view::npos)
        return RangeOf(*address, kBits);
    const auto bits = ParseBits(text.substr(slash + 1), kBits - before);
    return bits ? std::optional(RangeOf(*address, before + *bits)) : std::nullopt;
}

std::optional<std::vector<AddressRange>> ParseRanges(std::string_view text) {
    std::vector<AddressRange> ranges;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(','), text.size());
        const auto range = ParseRange(TrimBlanks(text.substr(0, end)));
        if (!range)
            return std::nullopt;
        ranges.push_back(*range);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return ranges;
}

std::string RangeText(const AddressRange& range) {
    if (range.bits == kBits)
        return AddressText(range.first);
    const bool isIPv4 = range.first.IsIPv4() && range.bits >= kMappedBits;
    return AddressText(range.first) + "/" + std::to_string(range.bits - (isIPv4 ? kMappedBits : 0));
}

} // namespace tarveth
