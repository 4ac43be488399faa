#include "platform/profile_file.h"

#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/posix/profile_text.h"
#include "platform/profile_integer.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>

#include <unistd.h>

namespace tarveth::platform {

namespace {

// What cannot be read has no values.
std::optional<std::string> Find(const std::string& section, const std::string& key, const std::string& file) {
    try {
        const ProfileText text(ProfileBytes(file));
        const auto value = text.Find(section, key);
        return value ? std::optional<std::string>(*value) : std::nullopt;
    } catch (const FileError&) {
        return std::nullopt;
    }
}

// A default has no blanks behind it; those before it and its quotes stay.
std::string_view WithoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

} // namespace

std::int32_t ProfileFileInt(const std::string& section, const std::string& key, std::int32_t defaultValue,
                            const std::string& file) {
    const auto value = Find(section, key, file);
    return value && !value->empty() ? static_cast<std::int32_t>(ReadProfileInteger(*value).wrapped)
                                    : defaultValue;
}

std::size_t ProfileFileString(const std::string& section, const std::string& key,
                              const std::string& defaultText, std::span<char> buffer,
                              const std::string& file) {
    const auto found = Find(section, key, file);
    const std::string_view value = found ? std::string_view(*found) : WithoutTrailingBlanks(defaultText);
    const std::size_t count = std::min(value.size(), buffer.size() - 1);
    std::copy_n(value.begin(), count, buffer.begin());
    buffer[count] = '\0';
    return count;
}

void RefuseUnwritableProfile(const std::string& file) {
    const std::filesystem::path parent = std::filesystem::path(file).parent_path();
    const std::string folder = parent.empty() ? "." : parent.string();
    std::error_code error;
    const bool exists = std::filesystem::exists(file, error);
    if ((exists && access(file.c_str(), W_OK) != 0) || (!exists && access(folder.c_str(), W_OK | X_OK) != 0))
        throw FileError(file, "cannot be written (" + std::generic_category().message(errno) + ")");
    if (exists && !std::filesystem::is_regular_file(file, error))
        throw FileError(file, "cannot be written: it is not a plain file");
    if (!exists && !std::filesystem::is_directory(folder, error))
        throw FileError(file, "cannot be written (" + std::generic_category().message(ENOTDIR) + ")");
}

void RewriteProfile(const std::string& file, std::span<const ProfilePut> puts) {
    ProfileText text(ProfileBytes(file));
    for (const ProfilePut& put : puts)
        text.Put(put.section, put.key, put.value);
    RefuseLongProfile(file, text.Text().size());
    WriteFileAtomically(file, text.Text());
}

} // namespace tarveth::platform
