// Runs a part of a test in a child process, so that it can give up rights, run out of disk space or be
// killed.
#pragma once

#include <csignal>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarveth {

// Gives the child's result; false if it was killed.
template <typename Work>
bool TrueInChild(Work work) {
    const pid_t child = fork();
    if (child == 0)
        _exit(work() ? 0 : 1);
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Gives up root's rights, since root may write to write-protected files.
inline bool BecomeNobody() {
    return getuid() != 0 || (setgid(65534) == 0 && setuid(65534) == 0);
}

// Limits the size of files that this process writes (RLIMIT_FSIZE), as a full disk does.
inline bool LimitFileSize(rlim_t bytes) {
    const struct rlimit limit = {bytes, bytes};
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

} // namespace tarveth
