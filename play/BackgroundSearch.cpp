#include "play/BackgroundSearch.h"

#include <utility>

namespace tarveth {

void BackgroundSearch::Begin(Work work) {
    Cancel();
    worker_ = std::jthread([work = std::move(work)](const std::stop_token& stop) { work(stop); });
}

void BackgroundSearch::RequestStop() {
    {
        const std::lock_guard lock(stopMutex_);
        worker_.request_stop();
    }
    stopRequested_.notify_all();
}

void BackgroundSearch::Cancel() {
    if (!Runs())
        return;
    RequestStop();
    worker_.join();
    ++number_; // what has been told waits for the window's thread, and is about another question
}

void BackgroundSearch::Tell(std::function<void()> take) {
    Send(std::move(take), false);
}

void BackgroundSearch::TellLast(std::function<void()> take) {
    Send(std::move(take), true);
}

// The number stays as it is while the search runs, so it can be read here without a lock.
void BackgroundSearch::Send(std::function<void()> take, bool last) {
    runSoon_([this, last, number = number_, take = std::move(take)] {
        if (number != number_ || !Runs())
            return;
        if (last) {
            worker_.join();
            ++number_;
        }
        take();
    });
}

// A std::stop_callback, which a std::condition_variable_any uses too, would hang now and then in programs
// made by GCC 12 for Windows: it waits for ever in its destructor when the stop is requested meanwhile.
void BackgroundSearch::WaitUntil(computer::Clock::time_point time, const std::stop_token& stop) {
    std::unique_lock lock(stopMutex_);
    stopRequested_.wait_until(lock, time, [&] { return stop.stop_requested(); });
}

} // namespace tarveth
