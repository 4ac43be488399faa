// The arguments of an in-game message.
#pragma once

#include "engine/rules/Currency.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tarveth {

// Views into the text it was made of, which must outlive it. Fields count from 1; of more than any message
// has, the last are passed over.
class GameFields {
public:
    static constexpr std::size_t kMost = 11;

    explicit GameFields(std::string_view arguments);

    std::string_view Whole() const { return whole_; }
    std::size_t Count() const { return count_; }
    // Without the blanks around it; empty beyond the last.
    std::string_view Text(std::size_t field) const;
    // Nothing for a field that is not a number, whole, within 16 bits.
    std::optional<std::int16_t> Number(std::size_t field) const;
    // The same within bounds.
    std::optional<std::int16_t> Number(std::size_t field, int least, int most) const;

private:
    std::string_view whole_;
    std::array<std::string_view, kMost> fields_;
    std::size_t count_ = 0;
};

} // namespace tarveth
