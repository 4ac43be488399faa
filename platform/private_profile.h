// The system's private-profile functions: values by section and key in an INI file. Every system keeps the
// rules of the functions whose names these are:
// - sections and keys match in any case, blanks around their names do not count; the first section of a name
//   and the first key in it are meant;
// - a value has no blanks around it, and one enclosed in a pair of equal quotes loses them;
// - lines that begin with ';', have no '=', or stand before any section mean nothing.
// Writes are gathered and reach the file together, so that it is at every moment as it was before all of them
// or after. A file of UTF-16 is never written to, and none grows beyond 1 MiB.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace tarveth::platform {

class PrivateProfile {
public:
    PrivateProfile();
    ~PrivateProfile(); // flushes
    PrivateProfile(const PrivateProfile&) = delete;
    PrivateProfile& operator=(const PrivateProfile&) = delete;

    // The number that the value begins with: a sign, then digits (after "0x" hexadecimal ones), modulo 2^32;
    // 0 for a value that begins with none. defaultValue without such a key or file, and for an empty value.
    std::int32_t GetPrivateProfileIntA(const std::string& section, const std::string& key,
                                       std::int32_t defaultValue, const std::string& file) const;

    // Puts the value into buffer, cut to what fits, with a zero behind it, and gives its length without the
    // zero. Without such a key or file it is defaultText, treated as a value.
    std::size_t GetPrivateProfileStringA(const std::string& section, const std::string& key,
                                         const std::string& defaultText, std::span<char> buffer,
                                         const std::string& file) const;

    // Replaces the key's line, or adds the key at the end of its section, or the section at the end of the
    // file, or makes the file; all other lines stay. Later gets see it, the disk only after Flush.
    // False when the file cannot be written (among others, one of UTF-16 or of more than 1 MiB), or when the
    // line would not read back under this key: an empty name, a line break in any of the three, a '=' in the
    // key, or a ';' or '[' at its begin.
    bool WritePrivateProfileStringA(const std::string& section, const std::string& key,
                                    const std::string& value, const std::string& file);

    // Brings what was written to the disk, each file in one piece; what others wrote into it until now stays.
    // False when that failed for one, also because it would pass 1 MiB; that file is as it was, and what was
    // written to it is forgotten.
    bool Flush() noexcept;

    // Why the last write or flush that failed did so, in the words of FileError's cause.
    const std::string& FailureCause() const;

private:
    struct Pending;
    std::unique_ptr<Pending> pending_;
};

} // namespace tarveth::platform
