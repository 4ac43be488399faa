#include "platform/server_process.h"

#include <algorithm>
#include <climits>
#include <csignal>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tarveth::platform {

namespace {

// How many keep-alive probes a peer may leave unanswered.
constexpr int kProbes = 3;

// The parts of the time until a vanished peer is noticed: it is idle for half of it, and each probe waits for
// an eighth.
constexpr int kIdlePart = 2;
constexpr int kProbePart = 8;

void SetOption(int socket, int level, int name, int value) {
    setsockopt(socket, level, name, &value, sizeof value);
}

} // namespace

void RaiseOpenFileLimit() {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return;
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

void IgnoreSigpipe() {
    std::signal(SIGPIPE, SIG_IGN);
}

bool WriteWithoutWaiting(std::string_view line) {
    pollfd stream{STDERR_FILENO, POLLOUT, 0};
    if (poll(&stream, 1, 0) != 1 || (stream.revents & POLLOUT) == 0)
        return false;
    // A pipe that is ready for writing takes this much at once.
    return write(STDERR_FILENO, line.data(), std::min<std::size_t>(line.size(), PIPE_BUF)) > 0;
}

bool ListenerSetsReuseAddress() {
    return true;
}

void EnableKeepAlive(int socket, int seconds) {
    SetOption(socket, SOL_SOCKET, SO_KEEPALIVE, 1);
#ifdef TCP_KEEPIDLE
    SetOption(socket, IPPROTO_TCP, TCP_KEEPIDLE, seconds / kIdlePart);
    SetOption(socket, IPPROTO_TCP, TCP_KEEPINTVL, seconds / kProbePart);
    SetOption(socket, IPPROTO_TCP, TCP_KEEPCNT, kProbes);
#endif
#ifdef TCP_USER_TIMEOUT
    // Sent bytes may stay unacknowledged for five sixths of the time. While there are any, no probes are
    // sent.
    SetOption(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, seconds * 5000 / 6);
#endif
}

std::optional<int> FiguresSignal() {
    return SIGUSR1;
}

std::optional<int> ReloadSignal() {
    return SIGHUP;
}

bool SignalHandlersRunOnAnotherThread() {
    return false;
}

} // namespace tarveth::platform
