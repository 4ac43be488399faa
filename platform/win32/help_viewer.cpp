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

bool HasViewer() {
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetWindowsDirectoryW(folder.data(), MAX_PATH));
    std::error_code error;
    const auto size = std::filesystem::file_size(std::filesystem::path(folder) / L"winhlp32.exe", error);
    return !error && size >= kLeastViewer;
}

} // namespace

bool WinHelpA(void* window, const std::string& path, unsigned command, std::uintptr_t data) {
    const auto file = AnsiPath(path);
    return file && HasViewer() &&
           ::WinHelpA(static_cast<HWND>(window), file->c_str(), command, data) != FALSE;
}

} // namespace tarveth::platform
