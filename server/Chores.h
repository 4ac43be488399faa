// Work that may wait for a moment, such as announcements to everybody and new connections. It is done in
// short slices, and between two of them everything that has arrived is served, so that no move waits for all
// of it.
#pragma once

#include "server/asio.h"

#include <deque>
#include <functional>

namespace tarveth {

class Chores {
public:
    // Does a few microseconds of the work; false when nothing is left to do.
    using Work = std::function<bool()>;

    // afterSlice: called after each slice of work.
    Chores(asio::io_context& io, std::function<void()> afterSlice)
        : io_(io), afterSlice_(std::move(afterSlice)) {}

    // Begins the work, in turns with what is under way already.
    void Add(Work work);

private:
    void Continue();
    void RunSlice();

    asio::io_context& io_;
    std::function<void()> afterSlice_;
    std::deque<Work> works_;
    bool posted_ = false;
};

} // namespace tarveth
