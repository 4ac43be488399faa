// A file that is to take another one's place. Until then it lies beside that one, under a name of its own.
#pragma once

#include "platform/win32/file_handle.h"

#include <filesystem>
#include <string>
#include <string_view>

#include <windows.h>

namespace tarveth::platform {

class NewFile {
public:
    // Makes it, empty, beside the file that a write to `file` reaches. Throws FileError when `file` cannot be
    // written, as all that follow do.
    explicit NewFile(const std::string& file);
    // Removes it, unless it has taken its place.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void Write(std::string_view bytes);

    // Closes it, so that somebody else can change it under the name that this gives.
    const std::filesystem::path& Lend();

    // Brings it to the disk and puts it in the old file's place, in one move, with that one's rights and
    // attributes.
    void TakePlace();

private:
    HANDLE CreateBeside();
    void TakeRights() const;

    std::string file_; // as it was asked for
    std::filesystem::path target_;
    DWORD attributes_; // of the old file
    std::filesystem::path path_;
    FileHandle handle_;
    bool placed_ = false;
};

} // namespace tarveth::platform
