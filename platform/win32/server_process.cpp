#include "platform/server_process.h"

#include <csignal>
#include <cstdio>

#include <winsock2.h>

#include <mstcpip.h>

namespace tarveth::platform {

namespace {

// The parts of the time until a vanished peer is noticed: it is idle for half of it; the system then sends
// ten probes.
constexpr ULONG kIdlePart = 2;
constexpr ULONG kProbePart = 24;
constexpr ULONG kMillisecondsOfASecond = 1000;

} // namespace

// Windows limits the number of sockets by memory alone.
void RaiseOpenFileLimit() {}

// Windows has no SIGPIPE: writing to a pipe without a reader is an ordinary error.
void IgnoreSigpipe() {}

bool WriteWithoutWaiting(std::string_view line) {
    const bool written = std::fwrite(line.data(), 1, line.size(), stderr) == line.size();
    return std::fflush(stderr) == 0 && written;
}

bool ListenerSetsReuseAddress() {
    return false;
}

void EnableKeepAlive(int socket, int seconds) {
    const ULONG time = static_cast<ULONG>(seconds) * kMillisecondsOfASecond;
    tcp_keepalive watch{1, time / kIdlePart, time / kProbePart};
    DWORD returned = 0;
    WSAIoctl(static_cast<SOCKET>(socket), SIO_KEEPALIVE_VALS, &watch, sizeof watch, nullptr, 0, &returned,
             nullptr, nullptr);
}

std::optional<std::uint64_t> AcknowledgedBytes(int) {
    return std::nullopt;
}

// The system raises SIGBREAK on Ctrl+Break.
std::optional<int> FiguresSignal() {
    return SIGBREAK;
}

std::optional<int> ReloadSignal() {
    return std::nullopt;
}

// The system starts a thread for every Ctrl+C.
bool SignalHandlersRunOnAnotherThread() {
    return true;
}

} // namespace tarveth::platform
