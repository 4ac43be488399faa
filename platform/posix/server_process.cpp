#include "platform/server_process.h"

#include <csignal>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/resource.h>
#include <sys/socket.h>

namespace tarveth::platform {

namespace {

// A peer is asked after so many idle seconds, and is gone when it has not answered so often, so long apart:
// within a minute, and the timers' own slack.
constexpr int kIdleSeconds = 30;
constexpr int kSecondsBetween = 8;
constexpr int kAttempts = 3;

// The same for bytes that it has not confirmed, which keep the system from asking.
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

void OutliveLogReader() {
    std::signal(SIGPIPE, SIG_IGN);
}

bool NeedsLeaveToListenAgain() {
    return true;
}

void WatchPeer(int socket) {
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

bool SignalsComeOnAThreadOfTheirOwn() {
    return false;
}

} // namespace tarveth::platform
