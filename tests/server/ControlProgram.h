// The control program, run against a lobby's socket.
#pragma once

#include <string>
#include <vector>

namespace tarveth {

struct ControlRun {
    int exitCode = -1;
    std::string output; // standard output and standard error
};

// Runs tarveth-lobby-ctl with that socket and these words, and waits for its end.
ControlRun RunControl(const std::string& socket, const std::vector<std::string>& words);

} // namespace tarveth
