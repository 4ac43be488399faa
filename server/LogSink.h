// Writes the log to the standard error stream, and never waits for its reader: a line that cannot be written
// is left out, and the next one that can says how many were.
#pragma once

#include "platform/server_process.h"

#include <spdlog/sinks/base_sink.h>

#include <mutex>
#include <string>
#include <string_view>

namespace tarveth {

class LogSink : public spdlog::sinks::base_sink<std::mutex> {
protected:
    void sink_it_(const spdlog::details::log_msg& message) override {
        spdlog::memory_buf_t line;
        formatter_->format(message, line);
        if (lost_ > 0 &&
            platform::WriteWithoutWaiting(std::to_string(lost_) + " lines of the log were left out\n"))
            lost_ = 0;
        if (lost_ > 0 || !platform::WriteWithoutWaiting({line.data(), line.size()}))
            ++lost_;
    }
    void flush_() override {}

private:
    std::size_t lost_ = 0;
};

} // namespace tarveth
