// What a server asks of its system, beyond the sockets themselves.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarveth::platform {

// Lets the process have as many files and sockets open as its hard limit allows.
void RaiseOpenFileLimit();

// Ignores SIGPIPE, so that the process survives when the reader of its standard error stream has gone.
void IgnoreSigpipe();

// Writes a line to the standard error stream if that takes it without waiting; false if its reader is behind.
// A line longer than a pipe takes at once is cut.
bool WriteWithoutWaiting(std::string_view line);

// Whether a listening socket should set SO_REUSEADDR. On POSIX systems a restarted server needs it, because
// connections in TIME_WAIT would keep its port taken. On Windows it would let two programs share a port.
bool ListenerSetsReuseAddress();

// Enables TCP keep-alive and limits how long unacknowledged bytes are retried (TCP_USER_TIMEOUT), so that a
// peer that has vanished is noticed. The socket is the system's own handle.
//
// seconds: the time after which it is noticed at the latest.
void EnableKeepAlive(int socket, int seconds = 60);

// Gives how many of the bytes sent on a TCP connection the peer's system has acknowledged; nothing where the
// system does not tell. The socket is the system's own handle.
std::optional<std::uint64_t> AcknowledgedBytes(int socket);

// The signal that asks the server to log its figures: SIGUSR1, or SIGBREAK on Windows.
std::optional<int> FiguresSignal();

// The signal that asks the server to read its configuration again: SIGHUP; nothing on Windows.
std::optional<int> ReloadSignal();

// Whether the system runs signal handlers on a thread of their own, so that even a program of one thread
// needs locks.
bool SignalHandlersRunOnAnotherThread();

} // namespace tarveth::platform
