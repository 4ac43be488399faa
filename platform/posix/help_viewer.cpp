#include "platform/help_viewer.h"

namespace tarveth::platform {

// Only Windows has a viewer for these files.
bool WinHelpA(void*, const std::string&, unsigned, std::uintptr_t) {
    return false;
}

} // namespace tarveth::platform
