// What a server asks of its system, beyond the sockets themselves.
#pragma once

#include <optional>

namespace tarveth::platform {

// Lets the process have as many files and sockets open as its hard limit allows.
void RaiseOpenFileLimit();

// Lets the process live on when nobody reads its log any more.
void OutliveLogReader();

// Has the system find out within a minute that the peer of a TCP socket is gone, idle or not. The socket is
// the system's own handle.
void WatchPeer(int socket);

// The signal by which an operator asks for figures; nothing where there is none.
std::optional<int> FiguresSignal();

} // namespace tarveth::platform
