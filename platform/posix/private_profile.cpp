#include "platform/private_profile.h"

#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/posix/profile_text.h"
#include "platform/profile_integer.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <map>
#include <optional>
#include <system_error>

#include <unistd.h>

namespace tarveth::platform {

namespace {

// Far more than any INI file; what is longer is not one.
constexpr std::uintmax_t kMostBytes = 1 << 20;

// The file's text, empty for a missing file; nothing when there is something that cannot be read.
std::optional<ProfileText> ReadText(const std::string& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error) && !error)
        return ProfileText();
    try {
        return ProfileText(ReadWholeFile(file, kMostBytes));
    } catch (const FileError&) {
        return std::nullopt;
    }
}

// Asked before anything is gathered, so that a write that is bound to fail says so at once.
bool MayWrite(const std::string& file) {
    std::error_code error;
    if (std::filesystem::exists(file, error))
        return std::filesystem::is_regular_file(file, error) && access(file.c_str(), W_OK) == 0;
    const std::string parent = std::filesystem::path(file).parent_path().string();
    const std::string folder = parent.empty() ? "." : parent;
    return std::filesystem::is_directory(folder, error) && access(folder.c_str(), W_OK | X_OK) == 0;
}

// A default has no blanks behind it; those before it and its quotes stay.
std::string_view WithoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

} // namespace

// The files that were written to since the last flush.
struct PrivateProfile::Pending {
    std::map<std::string, ProfileText> files;

    // The value as a get sees it now.
    std::optional<std::string> Find(const std::string& section, const std::string& key,
                                    const std::string& file) const {
        std::optional<ProfileText> read;
        const auto written = files.find(file);
        if (written == files.end())
            read = ReadText(file);
        const ProfileText* text = written != files.end() ? &written->second : read ? &*read : nullptr;
        const auto value = text != nullptr ? text->Find(section, key) : std::nullopt;
        return value ? std::optional<std::string>(*value) : std::nullopt;
    }
};

PrivateProfile::PrivateProfile() : pending_(std::make_unique<Pending>()) {}

PrivateProfile::~PrivateProfile() {
    Flush();
}

std::int32_t PrivateProfile::GetPrivateProfileIntA(const std::string& section, const std::string& key,
                                                   std::int32_t defaultValue, const std::string& file) const {
    const auto value = pending_->Find(section, key, file);
    return value ? static_cast<std::int32_t>(ReadProfileInteger(*value).wrapped) : defaultValue;
}

std::size_t PrivateProfile::GetPrivateProfileStringA(const std::string& section, const std::string& key,
                                                     const std::string& defaultText, std::span<char> buffer,
                                                     const std::string& file) const {
    if (buffer.empty())
        return 0;
    const auto found = pending_->Find(section, key, file);
    const std::string_view value = found ? std::string_view(*found) : WithoutTrailingBlanks(defaultText);
    const std::size_t count = std::min(value.size(), buffer.size() - 1);
    std::copy_n(value.begin(), count, buffer.begin());
    buffer[count] = '\0';
    return count;
}

bool PrivateProfile::WritePrivateProfileStringA(const std::string& section, const std::string& key,
                                                const std::string& value, const std::string& file) {
    const auto written = pending_->files.find(file);
    if (written != pending_->files.end())
        return written->second.Put(section, key, value);
    auto text = MayWrite(file) ? ReadText(file) : std::nullopt;
    if (!text || !text->Put(section, key, value))
        return false;
    pending_->files.emplace(file, std::move(*text));
    return true;
}

bool PrivateProfile::Flush() noexcept {
    bool allWritten = true;
    for (const auto& [file, text] : pending_->files) {
        try {
            WriteFileAtomically(file, text.Text());
        } catch (const std::exception&) {
            allWritten = false;
        }
    }
    pending_->files.clear();
    return allWritten;
}

} // namespace tarveth::platform
