// Random numbers that are the same on every system for a seed. The standard's engines are, its distributions
// are not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace tarveth::test {

class Dice {
public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    // Gives a number from 0 to count - 1.
    int Below(int count) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(count)); }
    int Between(int least, int most) { return least + Below(most - least + 1); }
    bool Percent(int chance) { return Below(100) < chance; }

    template <class Value>
    const Value& OneOf(const std::vector<Value>& values) {
        return values.at(static_cast<std::size_t>(Below(static_cast<int>(values.size()))));
    }

    template <class Value>
    void Shuffle(std::vector<Value>& values) {
        for (std::size_t i = values.size(); i > 1; --i)
            std::swap(values[i - 1], values[static_cast<std::size_t>(Below(static_cast<int>(i)))]);
    }

private:
    std::mt19937_64 engine_;
};

} // namespace tarveth::test
