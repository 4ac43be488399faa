// The thread of a test as the owner of sockets: what they post is kept, and run when the test says so.
#pragma once

#include "net/AsyncSocket.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace tarveth {

class OwnerQueue {
public:
    PostToOwner Post() {
        return [this](std::function<void()> function) {
            const std::lock_guard lock(mutex_);
            posted_.push_back(std::move(function));
            arrived_.notify_one();
        };
    }

    // Runs what is posted until the condition holds; false if it doesn't within all patience.
    template <class Condition>
    bool RunUntil(Condition condition) {
        while (!condition()) {
            const std::function<void()> function = Next(std::chrono::seconds(20));
            if (!function)
                return false;
            function();
        }
        return true;
    }

    // Runs what has been posted so far.
    void Run() {
        while (const std::function<void()> function = Next(std::chrono::seconds(0)))
            function();
    }

private:
    // Nothing if none comes in this time.
    std::function<void()> Next(std::chrono::seconds patience) {
        std::unique_lock lock(mutex_);
        if (!arrived_.wait_for(lock, patience, [this] { return !posted_.empty(); }))
            return {};
        std::function<void()> function = std::move(posted_.front());
        posted_.pop_front();
        return function;
    }

    std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<std::function<void()>> posted_;
};

} // namespace tarveth
