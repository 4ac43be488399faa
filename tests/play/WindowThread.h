// Runs what a search's thread has for the window's thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace tarveth::test {

class WindowThread {
public:
    void RunSoon(std::function<void()> function) {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(std::move(function));
        changed_.notify_one();
    }

    // Waits for the next function and runs it.
    void RunNext() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return !waiting_.empty(); });
        const std::function<void()> next = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        next();
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> waiting_;
};

} // namespace tarveth::test
