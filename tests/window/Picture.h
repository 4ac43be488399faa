// A picture of the screen or a part of it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tarveth::harness {

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels; // 0xRRGGBB, row by row from the top

    // Throws std::out_of_range outside the picture.
    [[nodiscard]] std::uint32_t Pixel(int x, int y) const;
    // Counts the different colours in the picture.
    [[nodiscard]] int ColourCount() const;
    // Throws std::runtime_error when the file cannot be written.
    void WritePng(const std::filesystem::path& file) const;

    bool operator==(const Picture&) const = default;
};

} // namespace tarveth::harness
