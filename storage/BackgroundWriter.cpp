#include "storage/BackgroundWriter.h"

#include "platform/file_error.h"

#include <system_error>
#include <utility>

namespace tarveth {

BackgroundWriter::BackgroundWriter(std::function<void(const std::string&)> report)
    : report_(std::move(report)) {}

BackgroundWriter::~BackgroundWriter() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void BackgroundWriter::Submit(Work work) {
    {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(std::move(work));
    }
    changed_.notify_all();
    if (!thread_.joinable())
        Begin();
}

// Where the system has no thread to spare, the work is done at once.
void BackgroundWriter::Begin() {
    try {
        thread_ = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        for (; !waiting_.empty(); waiting_.pop_front())
            Do(waiting_.front());
    }
}

void BackgroundWriter::WaitForAll() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return waiting_.empty(); });
}

void BackgroundWriter::Run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ends_ || !waiting_.empty(); });
        if (waiting_.empty())
            return;
        const Work work = waiting_.front();
        lock.unlock();
        Do(work);
        lock.lock();
        waiting_.pop_front();
        changed_.notify_all();
    }
}

void BackgroundWriter::Do(const Work& work) const {
    std::string failure;
    try {
        work();
    } catch (const platform::FileError& error) {
        failure = error.what();
    }
    report_(failure);
}

} // namespace tarveth
