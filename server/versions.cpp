#include "server/versions.h"

#include "net/wire/modPARSER.h"

#include <array>
#include <charconv>

namespace tarveth {

std::optional<int> VersionNumber(std::string_view version) {
    constexpr std::array<int, 3> kWeights = {10000, 1000, 1};
    constexpr int kLargestPart = 9999;
    const auto parts = SplitFields(version, ".", 0);
    int sum = 0;
    for (std::size_t i = 0; i < parts.size() && i < kWeights.size(); ++i) {
        const std::string_view part = TrimBlanks(parts[i]);
        int number = 0;
        const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), number);
        if (error != std::errc() || end != part.data() + part.size() || number < 0 || number > kLargestPart)
            return std::nullopt;
        sum += number * kWeights.at(i);
    }
    return sum;
}

} // namespace tarveth
