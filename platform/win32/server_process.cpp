#include "platform/server_process.h"

#include <csignal>

#include <winsock2.h>

#include <mstcpip.h>

namespace tarveth::platform {

namespace {

// Keep-alive probes start after kIdleMilliseconds and follow each other by kMillisecondsBetween. The system
// itself fixes their number at ten, so that a vanished peer is noticed within a minute.
constexpr ULONG kIdleMilliseconds = 30000;
constexpr ULONG kMillisecondsBetween = 2500;

} // namespace

// Windows limits the number of sockets by memory alone.
void RaiseOpenFileLimit() {}

// Windows has no SIGPIPE: writing to a pipe without a reader is an ordinary error.
void IgnoreSigpipe() {}

bool ListenerSetsReuseAddress() {
    return false;
}

void EnableKeepAlive(int socket) {
    tcp_keepalive watch{1, kIdleMilliseconds, kMillisecondsBetween};
    DWORD returned = 0;
    WSAIoctl(static_cast<SOCKET>(socket), SIO_KEEPALIVE_VALS, &watch, sizeof watch, nullptr, 0, &returned,
             nullptr, nullptr);
}

// The system raises SIGBREAK on Ctrl+Break.
std::optional<int> FiguresSignal() {
    return SIGBREAK;
}

// The system starts a thread for every Ctrl+C.
bool SignalHandlersRunOnAnotherThread() {
    return true;
}

} // namespace tarveth::platform
