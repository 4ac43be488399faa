// Late-move reductions: how many plies less deep a turn is searched that comes late in the order of turns,
// since late turns are seldom the best.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarveth::computer {

namespace reductions {

inline constexpr int kMost = 64;

using Table = std::array<std::array<std::int8_t, kMost>, kMost>;

// The natural logarithm by its series, the same on every system.
constexpr double Log(int number) {
    const double y = (number - 1.0) / (number + 1.0);
    double power = y;
    double sum = 0;
    for (int k = 1; k < 400; k += 2, power *= y * y)
        sum += power / k;
    return 2 * sum;
}

constexpr Table MakeTable() {
    std::array<double, kMost> logs{};
    for (int i = 1; i < kMost; ++i)
        logs[static_cast<std::size_t>(i)] = Log(i);
    Table table{};
    for (std::size_t depth = 1; depth < kMost; ++depth)
        for (std::size_t index = 1; index < kMost; ++index)
            // All are positive, and std::lround is no constant expression.
            // NOLINTNEXTLINE(bugprone-incorrect-roundings)
            table[depth][index] = static_cast<std::int8_t>(0.5 + logs[depth] * logs[index] / 1.9);
    return table;
}

inline constexpr Table kTable = MakeTable();

} // namespace reductions

// By the depth that is left and by how many turns were tried before, each at least 0.
constexpr int LateMoveReduction(int depth, int index) {
    return reductions::kTable[static_cast<std::size_t>(std::min(depth, reductions::kMost - 1))]
                             [static_cast<std::size_t>(std::min(index, reductions::kMost - 1))];
}

} // namespace tarveth::computer
