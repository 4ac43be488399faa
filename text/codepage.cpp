#include "text/codepage.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarveth {

namespace {

// The bytes from 0x80 on that are not the characters of the same number.
constexpr std::uint32_t kFirstOwn = 0x80;
constexpr std::array<std::uint16_t, 32> kOwn = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::uint32_t kNoCharacter = 0xFFFFFFFF;

std::uint32_t CharacterOf(unsigned char byte) {
    const bool own = byte >= kFirstOwn && byte < kFirstOwn + kOwn.size();
    return own ? kOwn.at(byte - kFirstOwn) : byte;
}

char ByteOf(std::uint32_t character) {
    const auto* const own = std::ranges::find(kOwn, character);
    if (own != kOwn.end())
        return static_cast<char>(kFirstOwn + static_cast<std::uint32_t>(own - kOwn.begin()));
    const bool same = character < kFirstOwn || (character >= kFirstOwn + kOwn.size() && character <= 0xFF);
    return same ? static_cast<char>(character) : '?';
}

// All of the code page needs three bytes at most.
void AppendUtf8(std::string& text, std::uint32_t character) {
    const auto continuation = [](std::uint32_t bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0U | (character >> 6U));
        text += continuation(character);
    } else {
        text += static_cast<char>(0xE0U | (character >> 12U));
        text += continuation(character >> 6U);
        text += continuation(character);
    }
}

// How many bytes a character has that begins with this one; 0 if none does.
std::size_t LengthFrom(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

// Takes a character, or one byte that belongs to none.
std::uint32_t TakeCharacter(std::string_view& text) {
    static constexpr std::array<std::uint32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = LengthFrom(lead);
    std::uint32_t character = length < 2 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t at = 1; at < length; ++at) {
        if (at == text.size() || (static_cast<unsigned char>(text[at]) & 0xC0U) != 0x80U) {
            text.remove_prefix(1);
            return kNoCharacter;
        }
        character = (character << 6U) | (static_cast<unsigned char>(text[at]) & 0x3FU);
    }
    const bool whole = length > 0 && character >= kLeast.at(length);
    text.remove_prefix(whole ? length : 1);
    return whole ? character : kNoCharacter;
}

} // namespace

std::string FromWire(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        AppendUtf8(text, CharacterOf(static_cast<unsigned char>(byte)));
    return text;
}

std::string ToWire(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty())
        bytes += ByteOf(TakeCharacter(utf8));
    return bytes;
}

} // namespace tarveth
