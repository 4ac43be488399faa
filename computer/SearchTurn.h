// A complete turn in four bytes, as move lists and the transposition table hold it.
#pragma once

#include "engine/rules/CompactGame.h"

#include <cstdint>

namespace tarveth::computer {

class SearchTurn {
public:
    constexpr SearchTurn() = default; // no turn
    constexpr SearchTurn(int from, int to, bool own, bool capture)
        : bits_(static_cast<std::uint32_t>(from) | static_cast<std::uint32_t>(to) << 6U |
                std::uint32_t{kNoSquare} << 12U | (own ? 1U << 21U : 0U) | (capture ? 1U << 22U : 0U)) {}

    // The same capture, with a piece that comes back for it.
    constexpr SearchTurn WithReturn(PieceKind kind, int square) const {
        return FromBits((bits_ & ~(0x7FU << 12U)) | static_cast<std::uint32_t>(square) << 12U |
                        static_cast<std::uint32_t>(kind) << 19U);
    }

    static constexpr SearchTurn FromBits(std::uint32_t bits) {
        SearchTurn turn;
        turn.bits_ = bits;
        return turn;
    }
    static constexpr int kBits = 23;
    constexpr std::uint32_t Bits() const { return bits_; }

    constexpr bool IsNone() const { return bits_ == 0; }
    constexpr int From() const { return static_cast<int>(bits_ & 0x3FU); }
    constexpr int To() const { return static_cast<int>(bits_ >> 6U & 0x3FU); }
    constexpr int ReturnTo() const { return static_cast<int>(bits_ >> 12U & 0x7FU); } // kNoSquare for none
    constexpr PieceKind ReturnKind() const { return static_cast<PieceKind>(bits_ >> 19U & 3U); }
    constexpr bool Own() const { return (bits_ >> 21U & 1U) != 0; } // moved by its owner
    constexpr bool IsCapture() const { return (bits_ >> 22U & 1U) != 0; }
    constexpr bool HasReturn() const { return ReturnTo() != kNoSquare; }

    friend constexpr bool operator==(SearchTurn, SearchTurn) = default;

private:
    std::uint32_t bits_ = 0;
};

} // namespace tarveth::computer
