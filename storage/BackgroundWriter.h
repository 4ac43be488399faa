// Writes files on a thread of its own, so that no window waits for the disk. The thread begins with the first
// file.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace tarveth {

class BackgroundWriter {
public:
    using Work = std::function<void()>;

    // report: is called on the writer's thread after each work, with what a platform::FileError that it threw
    // says; empty when all went well.
    explicit BackgroundWriter(std::function<void(const std::string&)> report);
    // Waits until all is written.
    ~BackgroundWriter();
    BackgroundWriter(const BackgroundWriter&) = delete;
    BackgroundWriter& operator=(const BackgroundWriter&) = delete;

    // Does the work behind all that was submitted before.
    void Submit(Work work);
    void WaitForAll();

private:
    void Begin();
    void Run();
    void Do(const Work& work) const;

    std::function<void(const std::string&)> report_;
    std::mutex mutex_; // of the three below
    std::condition_variable changed_;
    std::deque<Work> waiting_; // its first is under way
    bool ends_ = false;
    std::thread thread_;
};

} // namespace tarveth
