// Lets one thing at a time work on the game. A moving piece and a message box let events run in the middle of
// a pass; what such an event wants done waits here until the pass is over.
#pragma once

#include <functional>
#include <vector>

namespace tarveth {

class CommandGate {
public:
    // Keeps the gate shut as long as it lives, however it is left. It must have been open.
    class Hold {
    public:
        explicit Hold(CommandGate& gate);
        ~Hold() { gate_.shut_ = false; }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        CommandGate& gate_;
    };

    bool IsShut() const { return shut_; }
    bool HasWaiting() const { return !waiting_.empty(); }
    // Runs the command behind those that wait already: at once where the gate is open.
    void Submit(std::function<void()> command);
    // Runs what waits, in its order, each holding the gate. The gate must be open.
    void RunWaiting();

private:
    bool shut_ = false;
    std::vector<std::function<void()>> waiting_;
};

} // namespace tarveth
