// Runs Windows programs with Wine.
#pragma once

#include "tests/window/Waiting.h"

#include <map>
#include <string>

namespace tarveth::harness {

// A Wine server with a prefix in the build folder; it runs as long as the object exists.
class Wine {
public:
    // Starts the server. Throws std::runtime_error when it does not start.
    Wine();
    ~Wine();
    Wine(const Wine&) = delete;
    Wine& operator=(const Wine&) = delete;
};

// Gives the environment variables of programs that run there.
std::map<std::string, std::string> WineEnvironment();

inline constexpr Milliseconds kWinePatience{180'000}; // it may have to be made first

} // namespace tarveth::harness
