// A 64-bit fixed-point number, scaled by 10,000. Positions are kept in it, because a piece that is being
// animated moves by quarters of a square, which must add up exactly.
#pragma once

#include <compare>
#include <cstdint>

namespace tarveth {

class Currency {
public:
    static constexpr std::int64_t kScale = 10'000;

    constexpr Currency() = default;
    constexpr Currency(int whole)
        : raw_(std::int64_t{whole} * kScale) {} // implicit, so that columns and rows convert by themselves
    static constexpr Currency FromRaw(std::int64_t tenThousandths) {
        Currency value;
        value.raw_ = tenThousandths;
        return value;
    }

    constexpr std::int64_t Raw() const { return raw_; }
    constexpr double ToDouble() const { return static_cast<double>(raw_) / kScale; }

    // Rounds to the nearest whole number, half to even. Throws std::out_of_range when the result does not fit
    // 16 bits.
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
