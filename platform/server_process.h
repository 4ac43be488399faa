// What a server asks of its system, beyond the sockets themselves.
#pragma once

#include <optional>

namespace tarveth::platform {

// Lets the process have as many files and sockets open as its hard limit allows.
void RaiseOpenFileLimit();

// Lets the process live on when nobody reads its log any more.
void OutliveLogReader();

// Whether a listener that comes back needs leave to take its address while old connections linger there.
// Elsewhere that is given unasked, and the leave would let two programs listen on one port.
bool NeedsLeaveToListenAgain();

// Has the system find out within a minute that the peer of a TCP socket is gone, idle or not. The socket is
// the system's own handle.
void WatchPeer(int socket);

// The signal by which an operator asks for figures; nothing where there is none.
std::optional<int> FiguresSignal();

// Whether a signal is handled on a second thread, so that even a program of one thread has to lock.
bool SignalsComeOnAThreadOfTheirOwn();

} // namespace tarveth::platform
