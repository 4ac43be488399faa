// Waiting for something another process does: looked at again and again until it holds or the time is over.
#pragma once

#include <chrono>
#include <thread>

namespace tarveth::harness {

using Milliseconds = std::chrono::milliseconds;

// Long enough for a program to start on a busy machine under sanitizers.
inline constexpr Milliseconds kPatience{20'000};

// Asks `holds` every few milliseconds; false when it never held within `patience`.
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
