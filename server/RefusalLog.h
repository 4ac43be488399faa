// Tells the log which connections are refused, and of a flood of them a part and the number of the others, so
// that an attacker neither fills the disk nor hides in the log what matters.
#pragma once

#include "server/Bucket.h"
#include "server/ClientAddress.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tarveth {

class RefusalLog {
public:
    // write: takes a line for the log.
    explicit RefusalLog(std::function<void(const std::string& line)> write) : write_(std::move(write)) {}

    // reason: in UTF-8.
    void Tell(const ClientAddress& address, std::string_view reason, Time now);

private:
    std::function<void(const std::string&)> write_;
    Bucket lines_;
    std::size_t leftOut_ = 0;
};

} // namespace tarveth
