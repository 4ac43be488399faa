// A token bucket. It fills at the rate's average speed, and holds at most what the rate allows at once.
#pragma once

#include "server/Limits.h"

#include <algorithm>

namespace tarveth {

class Bucket {
public:
    // Whether the bucket holds the amount.
    bool Holds(const Rate& rate, double amount, Time now) {
        if (rate.perSecond <= 0)
            return true;
        Fill(rate, now);
        return amount <= tokens_;
    }

    // Takes the amount if the bucket holds it; false if it does not.
    bool Take(const Rate& rate, double amount, Time now) {
        if (!Holds(rate, amount, now))
            return false;
        tokens_ -= amount;
        return true;
    }

    // Takes the amount in any case, and gives the time until the bucket is out of debt.
    Clock::duration Borrow(const Rate& rate, double amount, Time now) {
        if (rate.perSecond <= 0)
            return {};
        Fill(rate, now);
        tokens_ -= amount;
        if (tokens_ >= 0)
            return {};
        return std::chrono::duration_cast<Clock::duration>(
            std::chrono::duration<double>(-tokens_ / rate.perSecond));
    }

private:
    void Fill(const Rate& rate, Time now) {
        if (filled_ == Time{})
            tokens_ = rate.atOnce;
        else
            tokens_ += std::chrono::duration<double>(now - filled_).count() * rate.perSecond;
        tokens_ = std::min(tokens_, rate.atOnce);
        filled_ = now;
    }

    double tokens_ = 0;
    Time filled_{};
};

} // namespace tarveth
