// One search at a time, on a thread of its own, whose answer is taken on the window's thread.
#pragma once

#include "computer/search.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>

namespace tarveth {

// Has the work done on the window's thread, soon. May be called on any thread.
using RunSoon = std::function<void(std::function<void()> work)>;

class BackgroundSearch {
public:
    // Is run on the search's thread. It ends soon after a stop is requested.
    using Work = std::function<void(const std::stop_token& stop)>;

    // What runSoon refers to outlives the object. All but Tell and WaitUntil is called on the window's
    // thread.
    explicit BackgroundSearch(RunSoon runSoon) : runSoon_(std::move(runSoon)) {}
    ~BackgroundSearch() { Cancel(); }
    BackgroundSearch(const BackgroundSearch&) = delete;
    BackgroundSearch& operator=(const BackgroundSearch&) = delete;

    // Begins a search; the one before is cancelled.
    void Begin(Work work);
    // Until the search has been cancelled or its last word has been taken.
    bool Runs() const { return worker_.joinable(); }
    // The search ends soon, with what it has found.
    void RequestStop();
    // Ends the search within milliseconds. Nothing that it has told or still tells is taken.
    void Cancel();

    // For the search's thread. Have `take` run on the window's thread, unless the search is cancelled before.
    // What is told last ends the search.
    void Tell(std::function<void()> take);
    void TellLast(std::function<void()> take);
    // For the search's thread. Waits until that time, or until a stop is requested.
    void WaitUntil(computer::Clock::time_point time, const std::stop_token& stop);

private:
    void Send(std::function<void()> take, bool last);

    RunSoon runSoon_;
    std::uint64_t number_ = 0; // of the search that runs, or was last
    std::mutex stopMutex_;     // held while a stop is requested
    std::condition_variable stopRequested_;
    std::jthread worker_;
};

} // namespace tarveth
