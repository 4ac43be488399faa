// Locks that one process at a time can hold, in the whole system. A lock has a file that other processes find
// it by, and ends with the process that holds it, however that process ends.
#pragma once

#include <memory>
#include <string>

namespace tarveth::platform {

// The lock is held for as long as a copy of this lives; its file is removed with the last copy.
using FileLock = std::shared_ptr<const void>;

// Takes the lock of that file, which is created. Gives nothing when somebody holds the lock, another process
// or this one. Throws FileError when the file cannot be created, or where the file system knows no locks.
FileLock TakeFileLock(const std::string& file);

} // namespace tarveth::platform
