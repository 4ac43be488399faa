// The control program's end of the lobby's local socket.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace tarveth {

// The lobby cannot be reached, or does not answer.
struct ControlError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct ControlAnswer {
    bool done = false;
    std::string text;
};

// Sends the request to the lobby that listens at the path, and waits for its answer. Throws ControlError.
//
// seconds: after which a lobby that does not go on with its answer is given up.
ControlAnswer AskLobby(const std::string& path, std::vector<std::string> words, int seconds);

} // namespace tarveth
