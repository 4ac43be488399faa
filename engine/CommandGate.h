// Lets only one pass or command at a time change the game. An animation and a message box handle events in
// the middle of a pass; the commands that these events give wait here until the pass is over.
#pragma once

#include <functional>
#include <vector>

namespace tarveth {

class CommandGate {
public:
    // Shuts the gate, which must be open, until the object is destroyed.
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
    // Runs the command at once if the gate is open; otherwise it waits behind those that wait already.
    void Submit(std::function<void()> command);
    // Runs the waiting commands in their order, each with the gate shut. The gate must be open.
    void RunWaiting();

private:
    bool shut_ = false;
    std::vector<std::function<void()>> waiting_;
};

} // namespace tarveth
