#include "platform/win32/new_file.h"

#include "platform/file_error.h"
#include "platform/follow_links.h"
#include "platform/leftovers.h"
#include "platform/text_path.h"

#include <algorithm>
#include <vector>

namespace tarveth::platform {

namespace {

constexpr char kCannotBeWritten[] = "cannot be written";

// For half a second, as long as somebody has the old file open: a scanner for viruses, an index, a backup.
bool MoveOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) !=
            FALSE)
            return true;
        const DWORD error = GetLastError();
        if (attempt == 10 || (error != ERROR_ACCESS_DENIED && error != ERROR_SHARING_VIOLATION))
            return false;
        Sleep(50);
    }
}

void RefuseUnwritable(const std::string& file, DWORD attributes) {
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        throw FileError(file, "cannot be written: it is a folder");
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        Fail(file, kCannotBeWritten, ERROR_ACCESS_DENIED);
}

} // namespace

NewFile::NewFile(const std::string& file)
    : file_(file),
      target_(FollowLinks(PathFromText(file))),
      attributes_(GetFileAttributesW(target_.c_str())),
      handle_((RefuseUnwritable(file, attributes_), CreateBeside())) {
    if (!handle_.IsOpen())
        Fail(file_, GetLastError() == ERROR_ACCESS_DENIED ? kFolderTakesNoFile : kCannotBeWritten);
}

NewFile::~NewFile() {
    handle_.Close(); // what is open is not removed
    if (!placed_)
        DeleteFileW(path_.c_str());
}

// A name that a killed program left behind is passed over.
HANDLE NewFile::CreateBeside() {
    HANDLE handle = INVALID_HANDLE_VALUE;
    for (int number = 0; number < 100 && handle == INVALID_HANDLE_VALUE; ++number) {
        path_ = target_.parent_path() / NewFileName(number);
        handle =
            CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    return handle;
}

void NewFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto step = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1 << 20));
        if (WriteFile(handle_.Get(), bytes.data(), step, &written, nullptr) == FALSE)
            Fail(file_, kCannotBeWritten);
        bytes.remove_prefix(written);
    }
}

const std::filesystem::path& NewFile::Lend() {
    if (!handle_.Close())
        Fail(file_, kCannotBeWritten);
    return path_;
}

// What knows no rights or attributes refuses them, which does no harm.
void NewFile::TakeRights() const {
    DWORD size = 0;
    GetFileSecurityW(target_.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<std::byte> rights(size);
    if (size > 0 &&
        GetFileSecurityW(target_.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size) != FALSE)
        SetFileSecurityW(path_.c_str(), DACL_SECURITY_INFORMATION, rights.data());
    SetFileAttributesW(path_.c_str(), attributes_);
}

void NewFile::TakePlace() {
    if (!handle_.IsOpen())
        handle_.Open(CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!handle_.IsOpen() || FlushFileBuffers(handle_.Get()) == FALSE || !handle_.Close())
        Fail(file_, kCannotBeWritten);
    if (attributes_ != INVALID_FILE_ATTRIBUTES)
        TakeRights();
    if (!MoveOver(path_, target_))
        Fail(file_, kCannotBeWritten);
    placed_ = true;
    RemoveLeftoversOnce(target_.parent_path());
}

} // namespace tarveth::platform
