// Waits until a condition that depends on another process holds, by polling.
#pragma once

#include <chrono>
#include <thread>

namespace tarveth::harness {

using Milliseconds = std::chrono::milliseconds;

// A time that is enough for a program with sanitizers to start on a busy computer.
inline constexpr Milliseconds kPatience{20'000};

// Calls `holds` every few milliseconds until it gives true. False if that does not happen within `patience`.
template <typename Condition>
bool WaitUntil(Condition holds, Milliseconds patience = kPatience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!holds()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(Milliseconds(5));
    }
    return true;
}

} // namespace tarveth::harness
