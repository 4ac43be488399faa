#include "engine/rules/Currency.h"

#include <limits>
#include <stdexcept>

namespace tarveth {

std::int16_t Currency::ToInt16() const {
    std::int64_t whole = raw_ / kScale;
    std::int64_t rest = raw_ % kScale;
    if (rest < 0) { // division truncates towards zero, but rounding below needs the floor
        --whole;
        rest += kScale;
    }
    const bool up = rest * 2 > kScale || (rest * 2 == kScale && whole % 2 != 0);
    if (up)
        ++whole;
    if (whole < std::numeric_limits<std::int16_t>::min() || whole > std::numeric_limits<std::int16_t>::max())
        throw std::out_of_range("a number does not fit 16 bits");
    return static_cast<std::int16_t>(whole);
}

} // namespace tarveth
