#include "platform/file_lock.h"

#include "platform/file_error.h"
#include "platform/posix/descriptor.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarveth::platform {

namespace {

[[noreturn]] void Fail(const std::string& file) {
    throw FileError(file, "cannot be locked (" + std::generic_category().message(errno) + ")");
}

class HeldLock {
public:
    HeldLock(std::string file, int descriptor) : file_(std::move(file)), descriptor_(descriptor) {}
    // The file goes while it is still locked, so that nobody locks it in vain.
    ~HeldLock() { unlink(file_.c_str()); }
    HeldLock(const HeldLock&) = delete;
    HeldLock& operator=(const HeldLock&) = delete;

private:
    std::string file_;
    Descriptor descriptor_;
};

// Whether the name still leads to the open file: whoever held the lock may have removed the file meanwhile.
bool IsNamed(int descriptor, const std::string& file) {
    struct stat opened {};
    struct stat named {};
    return fstat(descriptor, &opened) == 0 && lstat(file.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

} // namespace

FileLock TakeFileLock(const std::string& file) {
    for (;;) {
        const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0644);
        if (descriptor < 0)
            Fail(file);
        if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            close(descriptor);
            errno = error;
            if (error == EWOULDBLOCK)
                return nullptr;
            Fail(file);
        }
        if (IsNamed(descriptor, file))
            return std::make_shared<HeldLock>(file, descriptor);
        close(descriptor);
    }
}

} // namespace tarveth::platform
