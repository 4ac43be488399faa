#include "engine/CommandGate.h"

#include <cassert>
#include <utility>

namespace tarveth {

CommandGate::Hold::Hold(CommandGate& gate) : gate_(gate) {
    assert(!gate.shut_);
    gate_.shut_ = true;
}

void CommandGate::Submit(std::function<void()> command) {
    waiting_.push_back(std::move(command));
    if (!shut_)
        RunWaiting();
}

void CommandGate::RunWaiting() {
    while (!waiting_.empty()) {
        const std::function<void()> command = std::move(waiting_.front());
        waiting_.erase(waiting_.begin());
        const Hold hold(*this);
        command();
    }
}

} // namespace tarveth
