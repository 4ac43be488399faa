#include "platform/leftovers.h"

#include <windows.h>

namespace tarveth::platform {

ProcessId OwnProcess() {
    return GetCurrentProcessId();
}

bool IsRunning(ProcessId process) {
    const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
    if (handle == nullptr)
        return GetLastError() == ERROR_ACCESS_DENIED; // another user's
    const bool running = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
    CloseHandle(handle);
    return running;
}

// The system refuses this for a file that is open, unless everybody who opened it allowed it; a new file is
// opened without allowing it.
void RemoveUnlessOpen(const std::filesystem::path& file) {
    DeleteFileW(file.c_str());
}

} // namespace tarveth::platform
