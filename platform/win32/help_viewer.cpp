#include "platform/help_viewer.h"

#include "platform/win32/wide_text.h"

#include <filesystem>
#include <string>
#include <system_error>

#include <windows.h>

namespace tarveth::platform {

namespace {

// Since Vista the system comes with a stand-in that only tells that there is no viewer; it is a fraction of
// the viewer's size.
constexpr std::uintmax_t kLeastViewer = 100 * 1024;

// Wherever the system would look for it.
bool HasViewer() {
    wchar_t path[MAX_PATH];
    const DWORD length = SearchPathW(nullptr, L"winhlp32.exe", nullptr, MAX_PATH, path, nullptr);
    std::error_code error;
    const auto size = std::filesystem::file_size(std::wstring(path, length < MAX_PATH ? length : 0), error);
    return !error && size >= kLeastViewer;
}

} // namespace

bool WinHelpA(void* window, const std::string& path, unsigned command, std::uintptr_t data) {
    const auto file = AnsiPath(path);
    return file && HasViewer() &&
           ::WinHelpA(static_cast<HWND>(window), file->c_str(), command, data) != FALSE;
}

} // namespace tarveth::platform
