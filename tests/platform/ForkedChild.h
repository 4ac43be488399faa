// Runs a piece of a test in a child process, so that it may give up rights, run out of disk or be killed.
#pragma once

#include <csignal>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarveth {

// The child's answer; false too when it died.
template <typename Work>
bool TrueInChild(Work work) {
    const pid_t child = fork();
    if (child == 0)
        _exit(work() ? 0 : 1);
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// From now on this process may do what any user may; root is refused nothing.
inline bool BecomeNobody() {
    return getuid() != 0 || (setgid(65534) == 0 && setuid(65534) == 0);
}

// From now on no file of this process can grow past that size: a disk that fills up.
inline bool LimitFileSize(rlim_t bytes) {
    const struct rlimit limit = {bytes, bytes};
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

} // namespace tarveth
