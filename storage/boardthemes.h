// Pairs of colours for the squares of the board.
#pragma once

#include "storage/settings.h"

#include <array>

namespace tarveth {

struct BoardTheme {
    const char* name;
    BoardColor black, white;
};

// The first is the built-in one.
inline constexpr std::array kBoardThemes = std::to_array<BoardTheme>({
    {"Black and White", {0, 0, 0}, {255, 255, 255}},
    {"Wood", {139, 90, 43}, {238, 207, 161}},
    {"Forest", {84, 118, 76}, {232, 232, 206}},
    {"Sea", {72, 108, 142}, {218, 228, 236}},
    {"Slate", {88, 96, 106}, {206, 211, 217}},
    {"Heather", {116, 94, 134}, {230, 222, 236}},
    {"Night", {24, 28, 36}, {100, 110, 124}},
});

} // namespace tarveth
