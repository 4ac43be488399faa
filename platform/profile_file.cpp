#include "platform/profile_file.h"

#include "platform/atomic_file.h"
#include "platform/file_error.h"
#include "platform/text_path.h"

#include <filesystem>
#include <system_error>

namespace tarveth::platform {

namespace {

// By its byte order mark, or without one by the zero in its first letter.
bool IsUtf16(std::string_view bytes) {
    return bytes.starts_with("\xff\xfe") || bytes.starts_with("\xfe\xff") ||
           bytes.substr(0, 2).find('\0') != std::string_view::npos;
}

} // namespace

std::string ProfileBytes(const std::string& file) {
    std::error_code error;
    if (!std::filesystem::exists(PathFromText(file), error) && !error)
        return {};
    std::string bytes = ReadWholeFile(file, kLongestProfile);
    if (IsUtf16(bytes))
        throw FileError(file, "cannot be changed: it is UTF-16");
    return bytes;
}

void RefuseLongProfile(const std::string& file, std::uintmax_t bytes) {
    if (bytes > kLongestProfile)
        throw FileError(file, "would be longer than " + std::to_string(kLongestProfile) + " bytes");
}

} // namespace tarveth::platform
