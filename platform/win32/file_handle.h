// An open file of the system, and what the system says when something of it fails.
#pragma once

#include <string>

#include <windows.h>

namespace tarveth::platform {

// Throws FileError with the system's own sentence for the error.
[[noreturn]] void Fail(const std::string& file, const std::string& what, DWORD error = GetLastError());

// Closed when its owner goes.
class FileHandle {
public:
    explicit FileHandle(HANDLE handle) : handle_(handle) {}
    ~FileHandle() { Close(); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    HANDLE Get() const { return handle_; }
    bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    // Takes another one over; this one has been closed.
    void Open(HANDLE handle) { handle_ = handle; }
    // False when the system could not keep what was written.
    bool Close();

private:
    HANDLE handle_;
};

} // namespace tarveth::platform
