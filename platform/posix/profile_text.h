// The text of an INI file in memory, read and changed by the rules of the private-profile functions. Whatever
// is not asked to change stays byte for byte. Takes any bytes; the file head of private_profile.h has the
// rules.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tarveth::platform {

class ProfileText {
public:
    ProfileText() = default;
    explicit ProfileText(std::string text) : text_(std::move(text)) {}

    const std::string& Text() const { return text_; }

    // The bare value of the first such key in the first such section; nothing without one. Stays valid until
    // the next Put.
    std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

    // Replaces that key's line, or adds the key behind the last line of its section that is not blank, or the
    // section at the end. New lines end in CR LF. False, and nothing changes, when the line would not read
    // back under this key.
    bool Put(std::string_view section, std::string_view key, std::string_view value);

private:
    struct Line;
    struct Place;

    Line LineAt(std::size_t begin) const;
    Place Look(std::string_view section, std::string_view key) const;
    void InsertLine(std::size_t at, std::string line);

    std::string text_;
};

} // namespace tarveth::platform
