// One INI file on the disk, as private_profile.h reads and changes it; each system in its own way.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tarveth::platform {

// One write that has been asked for. The section and the key are trimmed, and it would read back.
struct ProfilePut {
    std::string section;
    std::string key;
    std::string value;
};

// Far more than any INI file; what is longer is not one.
inline constexpr std::uintmax_t kLongestProfile = 1 << 20;

// The file's bytes for changing it, none for a missing file. Throws FileError for a file that must stay as it
// is: it cannot be read, is longer than kLongestProfile, or is UTF-16, whose lines are not those of an INI
// file of single bytes.
std::string ProfileBytes(const std::string& file);

// Throws FileError for a length that no INI file has.
void RefuseLongProfile(const std::string& file, std::uintmax_t bytes);

// The system's part of it. The first two give what the functions of these names in private_profile.h give for
// the file as it is on the disk.
std::int32_t ProfileFileInt(const std::string& section, const std::string& key, std::int32_t defaultValue,
                            const std::string& file);
std::size_t ProfileFileString(const std::string& section, const std::string& key,
                              const std::string& defaultText, std::span<char> buffer,
                              const std::string& file);

// Throws FileError where a write is bound to fail, before any is gathered.
void RefuseUnwritableProfile(const std::string& file);

// Does all the writes to the file in one piece, and keeps what others have written into it until then. Throws
// FileError; the file is then as it was.
void RewriteProfile(const std::string& file, std::span<const ProfilePut> puts);

} // namespace tarveth::platform
