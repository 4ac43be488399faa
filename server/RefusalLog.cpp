#include "server/RefusalLog.h"

namespace tarveth {

namespace {

constexpr Rate kLines{10, 100};

} // namespace

void RefusalLog::Tell(const ClientAddress& address, std::string_view reason, Time now) {
    if (!lines_.Take(kLines, 1, now)) {
        ++leftOut_;
        return;
    }
    if (leftOut_ > 0)
        write_(std::to_string(leftOut_) + " more connections were refused");
    leftOut_ = 0;
    write_(AddressText(address) + " was refused: " + std::string(reason));
}

} // namespace tarveth
