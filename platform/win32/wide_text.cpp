#include "platform/win32/wide_text.h"

#include <windows.h>

namespace tarveth::platform {

namespace {

std::wstring Widen(UINT codePage, std::string_view bytes) {
    const int length = static_cast<int>(bytes.size());
    const int count = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(count), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), length, wide.data(), count);
    return wide;
}

// `lossy` may be null; for UTF-8 it must be null.
std::string Narrow(UINT codePage, std::wstring_view wide, BOOL* lossy) {
    const DWORD flags = codePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const int length = static_cast<int>(wide.size());
    const int count = WideCharToMultiByte(codePage, flags, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(count), '\0');
    WideCharToMultiByte(codePage, flags, wide.data(), length, bytes.data(), count, nullptr, lossy);
    return bytes;
}

} // namespace

std::wstring WideFromText(std::string_view text) {
    return Widen(CP_UTF8, text);
}

std::string TextFromWide(std::wstring_view wide) {
    return Narrow(CP_UTF8, wide, nullptr);
}

std::wstring WideFromAnsi(std::string_view bytes) {
    return Widen(GetACP(), bytes);
}

std::optional<std::string> AnsiFromWide(std::wstring_view wide) {
    const UINT codePage = GetACP();
    BOOL lossy = FALSE;
    std::string bytes = Narrow(codePage, wide, codePage == CP_UTF8 ? nullptr : &lossy);
    return lossy == FALSE ? std::optional(std::move(bytes)) : std::nullopt;
}

std::optional<std::string> AnsiPath(const std::string& path) {
    const std::wstring wide = WideFromText(path);
    if (auto whole = AnsiFromWide(wide))
        return whole;
    std::wstring brief(GetShortPathNameW(wide.c_str(), nullptr, 0), L'\0');
    brief.resize(GetShortPathNameW(wide.c_str(), brief.data(), static_cast<DWORD>(brief.size())));
    return brief.empty() ? std::nullopt : AnsiFromWide(brief);
}

} // namespace tarveth::platform
