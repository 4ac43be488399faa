#include "platform/atomic_file.h"

#include "platform/file_error.h"
#include "platform/win32/file_handle.h"
#include "platform/win32/new_file.h"
#include "platform/win32/wide_text.h"

#include <algorithm>

#include <windows.h>

namespace tarveth::platform {

namespace {

[[noreturn]] void FailTooLong(const std::string& file, std::uintmax_t limit) {
    throw FileError(file, "is longer than " + std::to_string(limit) + " bytes");
}

} // namespace

void WriteFileAtomically(const std::string& file, std::string_view bytes) {
    NewFile replacement(file);
    replacement.Write(bytes);
    replacement.TakePlace();
}

std::string ReadWholeFile(const std::string& file, std::uintmax_t limit) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const FileHandle handle(CreateFileW(WideFromText(file).c_str(), GENERIC_READ, kShareAll, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!handle.IsOpen())
        Fail(file, "cannot be read");
    if (GetFileType(handle.Get()) != FILE_TYPE_DISK)
        throw FileError(file, "cannot be read: it is not a plain file");

    std::string bytes;
    std::size_t filled = 0;
    for (DWORD got = 1; got > 0; filled += got) {
        if (filled > limit)
            FailTooLong(file, limit);
        // One byte more than the limit is asked for, so that the file may grow while it is read.
        const auto step = std::min<std::uintmax_t>(limit - filled, 65535) + 1;
        bytes.resize(filled + static_cast<std::size_t>(step));
        if (ReadFile(handle.Get(), bytes.data() + filled, static_cast<DWORD>(step), &got, nullptr) == FALSE)
            Fail(file, "cannot be read");
    }
    bytes.resize(filled);
    return bytes;
}

} // namespace tarveth::platform
