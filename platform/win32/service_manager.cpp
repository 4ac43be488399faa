#include "platform/service_manager.h"

namespace tarveth::platform {

void TellServiceManager(std::string_view) {}

std::optional<std::chrono::microseconds> WatchdogTime() {
    return std::nullopt;
}

} // namespace tarveth::platform
