// Threads of one process that create new files, or remove what was left of some.
#pragma once

#include <mutex>

namespace tarveth::platform {

// Held while a new file is created and locked, so that no other thread of this process finds it without its
// lock and takes it for a leftover.
std::mutex& CreationMutex();

} // namespace tarveth::platform
