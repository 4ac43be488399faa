// A 64-bit fixed-point number, scaled by 10,000. Squares are kept in it because a piece that is being
// animated stands on quarters of a square, and quarters must add up exactly.
#pragma once

#include <compare>
#include <cstdint>

namespace tarveth {

class Currency {
public:
    static constexpr std::int64_t kScale = 10'000;

    constexpr Currency() = default;
    constexpr Currency(int whole) : raw_(std::int64_t{whole} * kScale) {} // every square number is one
    static constexpr Currency FromRaw(std::int64_t tenThousandths) {
        Currency value;
        value.raw_ = tenThousandths;
        return value;
    }

    constexpr std::int64_t Raw() const { return raw_; }
    constexpr double ToDouble() const { return static_cast<double>(raw_) / kScale; }

    // The whole number next to the value; a half goes to the even one. Out of 16 bits throws
    // std::out_of_range.
    std::int16_t ToInt16() const;

    constexpr Currency operator-() const { return FromRaw(-raw_); }
    constexpr Currency& operator+=(Currency other) {
        raw_ += other.raw_;
        return *this;
    }
    friend constexpr Currency operator+(Currency a, Currency b) { return a += b; }
    friend constexpr Currency operator-(Currency a, Currency b) { return a += -b; }
    // NOLINTNEXTLINE(modernize-use-nullptr): the linter takes the comparison's own 0 for a pointer
    friend constexpr auto operator<=>(Currency, Currency) = default;

private:
    std::int64_t raw_ = 0;
};

} // namespace tarveth
