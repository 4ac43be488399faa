// The system's own functions. Each write is in the file when it returns.
#include "platform/private_profile.h"

#include "platform/profile_line.h"
#include "platform/win32/wide_text.h"

#include <algorithm>

#include <windows.h>

namespace tarveth::platform {

namespace {

// A name without a folder would be taken for one in the system's own.
std::wstring Absolute(const std::string& file) {
    const std::wstring wide = WideFromText(file);
    std::wstring path(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
    path.resize(GetFullPathNameW(wide.c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr));
    return path;
}

std::string Cut(std::string_view text, std::size_t size) {
    return std::string(text.substr(0, size - 1));
}

// The functions for a path that the code page has no letters for: they take the file's bytes as the others
// do.
std::string GetStringW(const std::string& section, const std::string& key, const std::string& defaultText,
                       std::size_t size, const std::wstring& path) {
    std::wstring buffer(size, L'\0');
    buffer.resize(GetPrivateProfileStringW(WideFromAnsi(section).c_str(), WideFromAnsi(key).c_str(),
                                           WideFromAnsi(defaultText).c_str(), buffer.data(),
                                           static_cast<DWORD>(size), path.c_str()));
    return Cut(AnsiFromWide(buffer).value_or(""), size);
}

bool WriteStringW(const std::string& section, const std::string& key, const std::string& value,
                  const std::wstring& path) {
    return WritePrivateProfileStringW(WideFromAnsi(section).c_str(), WideFromAnsi(key).c_str(),
                                      WideFromAnsi(value).c_str(), path.c_str()) != FALSE;
}

} // namespace

struct PrivateProfile::Pending {};

PrivateProfile::PrivateProfile() = default;

PrivateProfile::~PrivateProfile() = default;

std::int32_t PrivateProfile::GetPrivateProfileIntA(const std::string& section, const std::string& key,
                                                   std::int32_t defaultValue, const std::string& file) const {
    const std::wstring path = Absolute(file);
    if (const auto narrow = AnsiFromWide(path))
        return static_cast<std::int32_t>(
            ::GetPrivateProfileIntA(section.c_str(), key.c_str(), defaultValue, narrow->c_str()));
    return static_cast<std::int32_t>(GetPrivateProfileIntW(
        WideFromAnsi(section).c_str(), WideFromAnsi(key).c_str(), defaultValue, path.c_str()));
}

std::size_t PrivateProfile::GetPrivateProfileStringA(const std::string& section, const std::string& key,
                                                     const std::string& defaultText, std::span<char> buffer,
                                                     const std::string& file) const {
    const std::wstring path = Absolute(file);
    if (const auto narrow = AnsiFromWide(path))
        return ::GetPrivateProfileStringA(section.c_str(), key.c_str(), defaultText.c_str(), buffer.data(),
                                          static_cast<DWORD>(buffer.size()), narrow->c_str());
    if (buffer.empty())
        return 0;
    const std::string value = GetStringW(section, key, defaultText, buffer.size(), path);
    std::copy(value.begin(), value.end(), buffer.begin());
    buffer[value.size()] = '\0';
    return value.size();
}

bool PrivateProfile::WritePrivateProfileStringA(const std::string& section, const std::string& key,
                                                const std::string& value, const std::string& file) {
    const std::string heading(TrimmedProfileText(section));
    const std::string name(TrimmedProfileText(key));
    if (!ReadsBack(heading, name, value))
        return false;
    const std::wstring path = Absolute(file);
    if (const auto narrow = AnsiFromWide(path))
        return ::WritePrivateProfileStringA(heading.c_str(), name.c_str(), value.c_str(), narrow->c_str()) !=
               FALSE;
    return WriteStringW(heading, name, value, path);
}

// Nothing is gathered here.
bool PrivateProfile::Flush() noexcept {
    return true;
}

} // namespace tarveth::platform
