// Zobrist keys: one random number for each thing that tells two positions apart; a position's key is the
// exclusive or of those that are true of it.
#pragma once

#include "engine/rules/SquareSet.h"
#include "engine/rules/modPieces.h"

#include <array>
#include <cstdint>

namespace tarveth::computer {

inline constexpr int kSorts = 2 * Pawn; // sides times kinds
inline constexpr int kMostOfASort = 27; // pieces of one side and kind, none to all

constexpr std::size_t SortOf(Side side, PieceKind kind) {
    return static_cast<std::size_t>((side - Blue) * Pawn + kind - Master);
}

struct ZobristKeys {
    std::array<std::array<std::uint64_t, kSquares>, kSorts> standing{};
    std::array<std::array<std::uint64_t, kMostOfASort>, kSorts> jailed{};
    std::array<std::uint64_t, kSquares> barredPiece{}, barredSquare{};
    std::uint64_t redToMove = 0;
};

// SplitMix64, whose numbers pass the usual tests of randomness.
constexpr std::uint64_t NextRandom(std::uint64_t& state) {
    state += 0x9E3779B97F4A7C15;
    std::uint64_t z = state;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EB;
    return z ^ (z >> 31U);
}

constexpr ZobristKeys MakeZobristKeys() {
    ZobristKeys keys;
    std::uint64_t state = 2026;
    for (auto& sort : keys.standing)
        for (std::uint64_t& key : sort)
            key = NextRandom(state);
    for (auto& sort : keys.jailed)
        for (std::uint64_t& key : sort)
            key = NextRandom(state);
    for (std::uint64_t& key : keys.barredPiece)
        key = NextRandom(state);
    for (std::uint64_t& key : keys.barredSquare)
        key = NextRandom(state);
    keys.redToMove = NextRandom(state);
    return keys;
}

inline constexpr ZobristKeys kZobrist = MakeZobristKeys();

} // namespace tarveth::computer
