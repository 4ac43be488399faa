#include "platform/leftovers.h"

#include "platform/posix/creation_mutex.h"
#include "platform/posix/descriptor.h"

#include <cerrno>
#include <csignal>
#include <limits>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarveth::platform {

ProcessId OwnProcess() {
    return static_cast<ProcessId>(getpid());
}

bool IsRunning(ProcessId process) {
    // The numbers beyond, and 0, are none of a process; kill() takes them for groups of processes.
    if (process == 0 || process > static_cast<ProcessId>(std::numeric_limits<pid_t>::max()))
        return false;
    return kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM;
}

std::mutex& CreationMutex() {
    static std::mutex mutex;
    return mutex;
}

void RemoveUnlessOpen(const std::filesystem::path& file) {
    const std::lock_guard creation(CreationMutex());
    const Descriptor descriptor(open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!descriptor.IsOpen() || flock(descriptor.Number(), LOCK_EX | LOCK_NB) != 0)
        return;
    // The file may have taken its place between the opening and the lock, and another one its old name.
    struct stat locked {};
    struct stat named {};
    if (fstat(descriptor.Number(), &locked) == 0 && lstat(file.c_str(), &named) == 0 &&
        locked.st_dev == named.st_dev && locked.st_ino == named.st_ino)
        unlink(file.c_str());
}

} // namespace tarveth::platform
