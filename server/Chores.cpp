#include "server/Chores.h"

#include "server/Limits.h"

#include <utility>

namespace tarveth {

namespace {

using namespace std::chrono_literals;

// A slice takes about this long. What arrives in the middle of it waits at most for this and the next slice.
constexpr auto kSlice = 50us;

} // namespace

void Chores::Add(Work work) {
    works_.push_back(std::move(work));
    Continue();
}

void Chores::Continue() {
    if (posted_ || works_.empty())
        return;
    posted_ = true;
    asio::post(io_, [this] {
        posted_ = false;
        RunSlice();
        afterSlice_();
        Continue();
    });
}

void Chores::RunSlice() {
    const Time end = Clock::now() + kSlice;
    do {
        Work work = std::move(works_.front());
        works_.pop_front();
        if (work())
            works_.push_back(std::move(work));
    } while (!works_.empty() && Clock::now() < end);
}

} // namespace tarveth
