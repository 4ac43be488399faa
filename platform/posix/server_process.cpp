#include "platform/server_process.h"

#include <csignal>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/resource.h>
#include <sys/socket.h>

namespace tarveth::platform {

namespace {

// Keep-alive probes start after this many idle seconds; a peer that answers none of kAttempts probes, each
// kSecondsBetween apart, is gone. Together that is less than a minute.
constexpr int kIdleSeconds = 30;
constexpr int kSecondsBetween = 8;
constexpr int kAttempts = 3;

// How long sent bytes may stay unacknowledged. While there are any, the system sends no keep-alive probes.
[[maybe_unused]] constexpr int kUnconfirmedMilliseconds = 50000;

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

bool ListenerSetsReuseAddress() {
    return true;
}

void EnableKeepAlive(int socket) {
    SetOption(socket, SOL_SOCKET, SO_KEEPALIVE, 1);
#ifdef TCP_KEEPIDLE
    SetOption(socket, IPPROTO_TCP, TCP_KEEPIDLE, kIdleSeconds);
    SetOption(socket, IPPROTO_TCP, TCP_KEEPINTVL, kSecondsBetween);
    SetOption(socket, IPPROTO_TCP, TCP_KEEPCNT, kAttempts);
#endif
#ifdef TCP_USER_TIMEOUT
    SetOption(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, kUnconfirmedMilliseconds);
#endif
}

std::optional<int> FiguresSignal() {
    return SIGUSR1;
}

bool SignalHandlersRunOnAnotherThread() {
    return false;
}

} // namespace tarveth::platform
