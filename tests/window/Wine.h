// Windows programs on this system.
#pragma once

#include "tests/window/Waiting.h"

#include <map>
#include <string>

namespace tarveth::harness {

// A Windows of this build's own, which runs as long as this does.
class Wine {
public:
    // Throws std::runtime_error when it does not come up.
    Wine();
    ~Wine();
    Wine(const Wine&) = delete;
    Wine& operator=(const Wine&) = delete;
};

// What a program needs in its environment to run there.
std::map<std::string, std::string> WineEnvironment();

inline constexpr Milliseconds kWinePatience{180'000}; // it may have to be made first

} // namespace tarveth::harness
