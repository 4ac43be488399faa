#include "platform/help_viewer.h"

#include "platform/win32/wide_text.h"

#include <filesystem>
#include <string>
#include <system_error>

#include <windows.h>

namespace tarveth::platform {

namespace {

// The least size of the real winhlp32.exe. Since Vista, Windows has a small stub in its place that only says
// that there is no viewer.
constexpr std::uintmax_t kLeastViewer = 100 * 1024;

// Looks for the viewer in the folders that Windows searches for programs.
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
