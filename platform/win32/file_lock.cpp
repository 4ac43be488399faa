#include "platform/file_lock.h"

#include "platform/win32/file_handle.h"
#include "platform/win32/wide_text.h"

#include <windows.h>

namespace tarveth::platform {

// The system lets nobody else open the file, and removes it when it is closed, also by the end of the
// process.
FileLock TakeFileLock(const std::string& file) {
    const HANDLE handle =
        CreateFileW(WideFromText(file).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr,
                    OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle != INVALID_HANDLE_VALUE)
        return std::make_shared<FileHandle>(handle);
    if (GetLastError() == ERROR_SHARING_VIOLATION)
        return nullptr;
    Fail(file, "cannot be locked");
}

} // namespace tarveth::platform
