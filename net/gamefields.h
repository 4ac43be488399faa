// The arguments of an in-game message.
#pragma once

#include "engine/rules/Currency.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tarveth {

// The fields are views into the argument text, which must outlive them. They count from 1. Fields beyond the
// most that any message has are ignored.
class GameFields {
public:
    static constexpr std::size_t kMost = 11;

    explicit GameFields(std::string_view arguments);

    std::string_view Whole() const { return whole_; }
    std::size_t Count() const { return count_; }
    // The field without the blanks around it; empty beyond the last field.
    std::string_view Text(std::size_t field) const;
    // The number that the field begins with ("3", "3.0", "+3" and "3abc" are 3), halves to even; nothing if
    // it begins with none, or with one that does not fit 16 bits.
    std::optional<std::int16_t> Number(std::size_t field) const;
    // The same; nothing for a number that is not from least to most.
    std::optional<std::int16_t> Number(std::size_t field, int least, int most) const;

private:
    std::string_view whole_;
    std::array<std::string_view, kMost> fields_;
    std::size_t count_ = 0;
};

} // namespace tarveth
