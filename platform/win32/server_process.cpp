#include "platform/server_process.h"

#include <csignal>

#include <winsock2.h>

#include <mstcpip.h>

namespace tarveth::platform {

namespace {

// A peer is asked after so long without a word; after that the system itself counts the attempts, which are
// ten, and they come fast enough to be over within the minute.
constexpr ULONG kIdleMilliseconds = 30000;
constexpr ULONG kMillisecondsBetween = 2500;

} // namespace

// Nothing limits sockets here but memory.
void RaiseOpenFileLimit() {}

// A log that nobody reads is a write that fails, and ends no process here.
void OutliveLogReader() {}

bool NeedsLeaveToListenAgain() {
    return false;
}

void WatchPeer(int socket) {
    tcp_keepalive watch{1, kIdleMilliseconds, kMillisecondsBetween};
    DWORD returned = 0;
    WSAIoctl(static_cast<SOCKET>(socket), SIO_KEEPALIVE_VALS, &watch, sizeof watch, nullptr, 0, &returned,
             nullptr, nullptr);
}

// Ctrl+Break.
std::optional<int> FiguresSignal() {
    return SIGBREAK;
}

// The system makes a thread for every Ctrl+C.
bool SignalsComeOnAThreadOfTheirOwn() {
    return true;
}

} // namespace tarveth::platform
