// The property of INI files with any bytes: every setting can be read, and a setting that is written reads
// back as it was written and changes no other. Used by the fuzz target and by the test that replays its
// corpus.
#pragma once

#include "platform/posix/profile_text.h"
#include "platform/profile_integer.h"
#include "platform/profile_line.h"
#include "storage/settings_table.h"
#include "text/val.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth {

using IniValues = std::vector<std::optional<std::string>>;

inline IniValues ReadIniValues(const platform::ProfileText& text) {
    IniValues values;
    for (const SettingRow& setting : kSettings) {
        const auto value = text.Find(setting.section, setting.key);
        values.push_back(value ? std::optional<std::string>(*value) : std::nullopt);
    }
    return values;
}

// Whether the number is read right, modulo 2^32.
inline bool NumberHolds(const std::string& text) {
    const platform::ProfileInteger number = platform::ReadProfileInteger(text);
    const bool exact = number.value > -(std::int64_t{1} << 58) && number.value < (std::int64_t{1} << 58);
    return !(Val(text) != Val(text)) &&
           (!exact || static_cast<std::uint32_t>(number.value) == number.wrapped);
}

// Gives a sentence about what is wrong with a file of these bytes, whose first line is also the value that is
// written; empty if the property holds.
inline std::string IniFault(std::string_view bytes) {
    const std::size_t index = bytes.size() % kSettings.size();
    const SettingRow& chosen = kSettings[index];
    const std::string value(bytes.substr(0, bytes.find_first_of("\r\n")));
    platform::ProfileText text{std::string(bytes)};
    IniValues expected = ReadIniValues(text);
    for (const auto& read : expected)
        if (read && !NumberHolds(*read))
            return "a number is wrong";

    const bool written = text.Put(chosen.section, chosen.key, value);
    if (written != (value.find('\0') == std::string::npos))
        return "a line was refused or accepted wrongly";
    if (!written && text.Text() != bytes)
        return "a refused write changed the file";
    if (written)
        expected[index] = platform::BareValue(value);
    if (ReadIniValues(text) != expected)
        return "a value did not read back, or another one changed";
    const std::string once = text.Text();
    text.Put(chosen.section, chosen.key, value);
    return text.Text() == once ? "" : "the second write of a value changed the file";
}

} // namespace tarveth
