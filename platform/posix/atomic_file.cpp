#include "platform/atomic_file.h"

#include "platform/file_error.h"
#include "platform/follow_links.h"
#include "platform/leftovers.h"
#include "platform/posix/creation_mutex.h"
#include "platform/posix/descriptor.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarveth::platform {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Fail(const std::string& file, const std::string& what, int error) {
    throw FileError(file, what + " (" + std::generic_category().message(error) + ")");
}

// A file that may be written is refused too where its folder takes no new one: a write in place could lose
// it.
[[noreturn]] void FailToCreate(const std::string& file, int error) {
    const bool refused = error == EACCES || error == EPERM || error == EROFS;
    Fail(file, refused ? kFolderTakesNoFile : "cannot be written", error);
}

[[noreturn]] void FailTooLong(const std::string& file, std::uintmax_t limit) {
    throw FileError(file, "is longer than " + std::to_string(limit) + " bytes");
}

// Removes the file of that name when it goes, unless told to keep it.
class Removal {
public:
    explicit Removal(const fs::path& path) : path_(path) {}
    ~Removal() {
        if (!kept_)
            unlink(path_.c_str());
    }
    Removal(const Removal&) = delete;
    Removal& operator=(const Removal&) = delete;
    void Keep() { kept_ = true; }

private:
    const fs::path& path_;
    bool kept_ = false;
};

// Opens a new file beside the target, locked for as long as it is open, and puts its name into path. A name
// that a killed program left behind is passed over.
int CreateBeside(const fs::path& target, fs::path& path) {
    const std::lock_guard creation(CreationMutex());
    int descriptor = -1;
    for (int number = 0; number < 100; ++number) {
        path = target.parent_path() / NewFileName(number);
        descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        if (descriptor >= 0 || errno != EEXIST)
            break;
    }
    if (descriptor >= 0)
        flock(descriptor, LOCK_EX | LOCK_NB); // some file systems have no locks
    return descriptor;
}

// False with errno set when not everything went out.
bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// A rename would replace even a file that its owner has write-protected, so that is asked here.
void RefuseUnwritable(const fs::path& file, const struct stat& old) {
    if (S_ISDIR(old.st_mode))
        Fail(file, "cannot be written", EISDIR);
    if (!S_ISREG(old.st_mode))
        throw FileError(file.string(), "cannot be written: it is not a plain file");
    if (access(file.c_str(), W_OK) != 0)
        Fail(file, "cannot be written", errno);
}

// The new name must survive a power failure too. Some file systems refuse the request; then it is theirs to
// keep.
void SyncFolder(const fs::path& folder) {
    const Descriptor descriptor(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen())
        fsync(descriptor.Number());
}

} // namespace

void WriteFileAtomically(const std::string& file, std::string_view bytes) {
    const fs::path target = FollowLinks(file);
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    if (exists)
        RefuseUnwritable(target, old);

    fs::path temporary;
    const Descriptor descriptor(CreateBeside(target, temporary));
    if (!descriptor.IsOpen())
        FailToCreate(file, errno);
    Removal removal(temporary);
    if ((exists && fchmod(descriptor.Number(), old.st_mode & 07777) != 0) ||
        !WriteAll(descriptor.Number(), bytes) || fsync(descriptor.Number()) != 0 ||
        rename(temporary.c_str(), target.c_str()) != 0)
        Fail(file, "cannot be written", errno);
    removal.Keep();
    SyncFolder(target.parent_path());
    RemoveLeftoversOnce(target.parent_path());
}

std::string ReadWholeFile(const std::string& file, std::uintmax_t limit) {
    // Without O_NONBLOCK a named pipe would hold the program until somebody writes into it.
    const Descriptor descriptor(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!descriptor.IsOpen() || fstat(descriptor.Number(), &status) != 0)
        Fail(file, "cannot be read", errno);
    if (S_ISDIR(status.st_mode))
        Fail(file, "cannot be read", EISDIR);
    if (!S_ISREG(status.st_mode))
        throw FileError(file, "cannot be read: it is not a plain file");
    if (static_cast<std::uintmax_t>(status.st_size) > limit)
        FailTooLong(file, limit);

    std::string bytes;
    std::size_t filled = 0;
    for (;;) {
        if (filled > limit)
            FailTooLong(file, limit);
        // One byte more than the limit is asked for, so that the file may grow while it is read.
        const auto step = std::min<std::uintmax_t>(limit - filled, 65535) + 1;
        bytes.resize(filled + static_cast<std::size_t>(step));
        const ssize_t got = read(descriptor.Number(), bytes.data() + filled, static_cast<std::size_t>(step));
        if (got < 0 && errno != EINTR)
            Fail(file, "cannot be read", errno);
        filled += got > 0 ? static_cast<std::size_t>(got) : 0;
        if (got == 0)
            break;
    }
    bytes.resize(filled);
    return bytes;
}

} // namespace tarveth::platform
