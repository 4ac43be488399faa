#include "platform/win32/file_handle.h"

#include "platform/file_error.h"
#include "platform/win32/wide_text.h"

#include <iterator>

namespace tarveth::platform {

namespace {

// The system's own sentence, without its full stop.
std::string MessageOf(DWORD error) {
    wchar_t text[512];
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
        error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    const std::string message = TextFromWide({text, length});
    return length == 0 ? "error " + std::to_string(error)
                       : message.substr(0, message.find_last_not_of(" .") + 1);
}

} // namespace

void Fail(const std::string& file, const std::string& what, DWORD error) {
    throw FileError(file, what + " (" + MessageOf(error) + ")");
}

bool FileHandle::Close() {
    const HANDLE handle = handle_;
    handle_ = INVALID_HANDLE_VALUE;
    return handle == INVALID_HANDLE_VALUE || CloseHandle(handle) != FALSE;
}

} // namespace tarveth::platform
