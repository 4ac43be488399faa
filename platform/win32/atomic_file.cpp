#include "platform/atomic_file.h"

#include "platform/file_error.h"
#include "platform/replacement.h"
#include "platform/text_path.h"
#include "platform/win32/wide_text.h"

#include <algorithm>
#include <filesystem>
#include <string>

#include <windows.h>

namespace tarveth::platform {

namespace fs = std::filesystem;

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

[[noreturn]] void Fail(const std::string& file, const std::string& what, DWORD error = GetLastError()) {
    throw FileError(file, what + " (" + MessageOf(error) + ")");
}

[[noreturn]] void FailTooLong(const std::string& file, std::uintmax_t limit) {
    throw FileError(file, "is longer than " + std::to_string(limit) + " bytes");
}

class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE Get() const { return handle_; }
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    // False when the system could not keep what was written.
    bool Close() {
        const HANDLE handle = handle_;
        handle_ = INVALID_HANDLE_VALUE;
        return handle == INVALID_HANDLE_VALUE || CloseHandle(handle) != FALSE;
    }

private:
    HANDLE handle_;
};

// Opens a new file beside the target and puts its name into path. A name that a killed program left behind is
// passed over.
HANDLE CreateBeside(const fs::path& target, fs::path& path) {
    const std::string stem = ".tarveth-" + std::to_string(GetCurrentProcessId()) + "-";
    HANDLE handle = INVALID_HANDLE_VALUE;
    for (int attempt = 0; attempt < 100 && handle == INVALID_HANDLE_VALUE; ++attempt) {
        path = target.parent_path() / (stem + std::to_string(attempt));
        handle =
            CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    return handle;
}

bool WriteAll(HANDLE handle, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto step = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1 << 20));
        if (WriteFile(handle, bytes.data(), step, &written, nullptr) == FALSE)
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

void RefuseUnwritable(const std::string& file, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        throw FileError(file, "cannot be written: it is a folder");
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        Fail(file, "cannot be written", ERROR_ACCESS_DENIED);
}

// The one keeps the old file's rights and attributes; the other is for disks that know none.
bool TakeName(const fs::path& temporary, const fs::path& target, bool exists) {
    if (exists && ReplaceFileW(target.c_str(), temporary.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                               nullptr, nullptr) != FALSE)
        return true;
    return MoveFileExW(temporary.c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
}

} // namespace

void WriteFileAtomically(const std::string& file, std::string_view bytes) {
    const fs::path target = FollowLinks(PathFromText(file));
    const DWORD attributes = GetFileAttributesW(target.c_str());
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (exists)
        RefuseUnwritable(file, attributes);

    fs::path temporary;
    Handle handle(CreateBeside(target, temporary));
    if (!handle.IsOpen())
        Fail(file, "cannot be written");
    Removal removal(temporary);
    if (!WriteAll(handle.Get(), bytes) || FlushFileBuffers(handle.Get()) == FALSE || !handle.Close() ||
        !TakeName(temporary, target, exists)) {
        const DWORD error = GetLastError();
        handle.Close(); // what is open is not removed
        Fail(file, "cannot be written", error);
    }
    removal.Keep();
}

std::string ReadWholeFile(const std::string& file, std::uintmax_t limit) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Handle handle(CreateFileW(WideFromText(file).c_str(), GENERIC_READ, kShareAll, nullptr,
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
