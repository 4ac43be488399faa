#include "platform/private_profile.h"

#include "platform/file_error.h"
#include "platform/profile_file.h"
#include "platform/profile_integer.h"
#include "platform/profile_line.h"

#include <algorithm>
#include <exception>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace tarveth::platform {

// What was written to each file since the last flush.
struct PrivateProfile::Pending {
    std::map<std::string, std::vector<ProfilePut>> files;
    std::string failure; // the cause of the last one

    // What `work` does; false, with the cause in `failure`, where it throws.
    template <typename Work>
    bool Try(Work work) {
        try {
            work();
            return true;
        } catch (const FileError& error) {
            failure = error.Cause();
        } catch (const std::exception& error) {
            failure = error.what();
        }
        return false;
    }

    // Asked before anything is gathered, so that a write that is bound to fail says so at once.
    bool CanBeChanged(const std::string& file) {
        return files.contains(file) || Try([&] {
                   ProfileBytes(file);
                   RefuseUnwritableProfile(file);
               });
    }

    // The value as it will read back; nothing for one that was not written to.
    std::optional<std::string_view> Find(std::string_view section, std::string_view key,
                                         const std::string& file) const {
        const auto puts = files.find(file);
        if (puts == files.end())
            return std::nullopt;
        section = TrimmedProfileText(section);
        key = TrimmedProfileText(key);
        const auto& all = puts->second;
        const auto last = std::find_if(all.rbegin(), all.rend(), [&](const ProfilePut& put) {
            return SameProfileName(put.section, section) && SameProfileName(put.key, key);
        });
        return last != all.rend() ? std::optional(BareValue(last->value)) : std::nullopt;
    }
};

PrivateProfile::PrivateProfile() : pending_(std::make_unique<Pending>()) {}

PrivateProfile::~PrivateProfile() {
    Flush();
}

std::int32_t PrivateProfile::GetPrivateProfileIntA(const std::string& section, const std::string& key,
                                                   std::int32_t defaultValue, const std::string& file) const {
    if (const auto value = pending_->Find(section, key, file))
        return value->empty() ? defaultValue : static_cast<std::int32_t>(ReadProfileInteger(*value).wrapped);
    return ProfileFileInt(section, key, defaultValue, file);
}

std::size_t PrivateProfile::GetPrivateProfileStringA(const std::string& section, const std::string& key,
                                                     const std::string& defaultText, std::span<char> buffer,
                                                     const std::string& file) const {
    if (buffer.empty())
        return 0;
    const auto value = pending_->Find(section, key, file);
    if (!value)
        return ProfileFileString(section, key, defaultText, buffer, file);
    const std::size_t count = std::min(value->size(), buffer.size() - 1);
    std::copy_n(value->begin(), count, buffer.begin());
    buffer[count] = '\0';
    return count;
}

bool PrivateProfile::WritePrivateProfileStringA(const std::string& section, const std::string& key,
                                                const std::string& value, const std::string& file) {
    ProfilePut put{std::string(TrimmedProfileText(section)), std::string(TrimmedProfileText(key)), value};
    if (!ReadsBack(put.section, put.key, put.value)) {
        pending_->failure = "cannot hold a text of more than one line";
        return false;
    }
    if (!pending_->CanBeChanged(file))
        return false;
    pending_->files[file].push_back(std::move(put));
    return true;
}

bool PrivateProfile::Flush() noexcept {
    bool allWritten = true;
    for (const auto& [file, puts] : pending_->files)
        allWritten &= pending_->Try([&file = file, &puts = puts] { RewriteProfile(file, puts); });
    pending_->files.clear();
    return allWritten;
}

const std::string& PrivateProfile::FailureCause() const {
    return pending_->failure;
}

} // namespace tarveth::platform
