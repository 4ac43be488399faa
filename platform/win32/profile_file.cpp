// By the system's own functions. They write a file in place, one key after the other, so they are given a
// copy of it.
#include "platform/profile_file.h"

#include "platform/file_error.h"
#include "platform/win32/new_file.h"
#include "platform/win32/wide_text.h"

#include <algorithm>

#include <windows.h>

namespace tarveth::platform {

namespace {

// Another program may write into the file again and again; then the last one to write wins.
constexpr int kMostCopies = 4;

// A name without a folder would be taken for one in the system's own.
std::wstring Absolute(const std::wstring& name) {
    std::wstring path(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
    path.resize(GetFullPathNameW(name.c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr));
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

bool WriteString(const ProfilePut& put, const std::wstring& path) {
    if (const auto narrow = AnsiFromWide(path))
        return ::WritePrivateProfileStringA(put.section.c_str(), put.key.c_str(), put.value.c_str(),
                                            narrow->c_str()) != FALSE;
    return WritePrivateProfileStringW(WideFromAnsi(put.section).c_str(), WideFromAnsi(put.key).c_str(),
                                      WideFromAnsi(put.value).c_str(), path.c_str()) != FALSE;
}

// The system may hold back what is written to an INI file until it is told so, or asked for another one.
void EndHoldingBack(const std::wstring& path) {
    WritePrivateProfileStringW(nullptr, nullptr, nullptr, path.c_str());
}

void Change(const std::filesystem::path& copy, std::span<const ProfilePut> puts, const std::string& file) {
    const std::wstring path = Absolute(copy.native());
    for (const ProfilePut& put : puts)
        if (!WriteString(put, path))
            Fail(file, "cannot be written");
    EndHoldingBack(path);
    RefuseLongProfile(file, std::filesystem::file_size(copy));
}

} // namespace

std::int32_t ProfileFileInt(const std::string& section, const std::string& key, std::int32_t defaultValue,
                            const std::string& file) {
    // Not every Windows takes an empty value for the default.
    char first[2] = "";
    if (ProfileFileString(section, key, "", first, file) == 0)
        return defaultValue;
    const std::wstring path = Absolute(WideFromText(file));
    if (const auto narrow = AnsiFromWide(path))
        return static_cast<std::int32_t>(
            ::GetPrivateProfileIntA(section.c_str(), key.c_str(), defaultValue, narrow->c_str()));
    return static_cast<std::int32_t>(GetPrivateProfileIntW(
        WideFromAnsi(section).c_str(), WideFromAnsi(key).c_str(), defaultValue, path.c_str()));
}

std::size_t ProfileFileString(const std::string& section, const std::string& key,
                              const std::string& defaultText, std::span<char> buffer,
                              const std::string& file) {
    const std::wstring path = Absolute(WideFromText(file));
    if (const auto narrow = AnsiFromWide(path))
        return ::GetPrivateProfileStringA(section.c_str(), key.c_str(), defaultText.c_str(), buffer.data(),
                                          static_cast<DWORD>(buffer.size()), narrow->c_str());
    const std::string value = GetStringW(section, key, defaultText, buffer.size(), path);
    std::copy(value.begin(), value.end(), buffer.begin());
    buffer[value.size()] = '\0';
    return value.size();
}

// Only trying tells who may write where.
void RefuseUnwritableProfile(const std::string& file) {
    const NewFile trial(file);
}

void RewriteProfile(const std::string& file, std::span<const ProfilePut> puts) {
    for (int copies = 1;; ++copies) {
        const std::string before = ProfileBytes(file);
        NewFile copy(file);
        copy.Write(before);
        Change(copy.Lend(), puts, file);
        if (copies == kMostCopies || ProfileBytes(file) == before)
            return copy.TakePlace();
    }
}

} // namespace tarveth::platform
