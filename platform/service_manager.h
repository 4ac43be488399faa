// The service manager that has started the program, such as systemd, where it wants to hear of its state.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace tarveth::platform {

// Tells the manager a state, such as "READY=1". Does nothing where no manager listens; never waits.
void TellServiceManager(std::string_view state);

// Gives the time within which the manager wants to hear "WATCHDOG=1" again; nothing if it does not watch.
std::optional<std::chrono::microseconds> WatchdogTime();

} // namespace tarveth::platform
