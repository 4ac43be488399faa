// What made turns good elsewhere in the tree: the order in which a position's turns are tried follows it.
#pragma once

#include "computer/SearchTurn.h"

#include <array>
#include <cstdint>

namespace tarveth::computer {

inline constexpr int kDeepestPly = 96;

class History {
public:
    void Clear() { *this = History(); }
    // Before another search of the same game: what was learnt counts less.
    void Age();

    // What a piece moved by `mover` has been worth so far; between -kMost and kMost.
    int Of(Side mover, PieceKind kind, SearchTurn turn) const {
        return byTo_[Code(mover, kind, turn)][To(turn)] +
               byFrom_[Index(mover)][static_cast<std::size_t>(turn.From())][To(turn)];
    }
    int OfReturn(Side mover, PieceKind kind, int square) const {
        return returns_[Index(mover)][kind == Pawn ? 1 : 0][static_cast<std::size_t>(square)];
    }
    void Reward(Side mover, PieceKind kind, SearchTurn turn, int bonus);

    bool IsKiller(int ply, SearchTurn turn) const { return KillerRank(ply, turn) != 0; }
    // 2 for the latest turn that refuted its predecessor at this distance from the root, 1 for the one
    // before.
    int KillerRank(int ply, SearchTurn turn) const {
        const auto& killers = killers_[static_cast<std::size_t>(ply)];
        if (turn == killers[0])
            return 2;
        return turn == killers[1] ? 1 : 0;
    }
    void AddKiller(int ply, SearchTurn turn);

    static constexpr int kMost = 8192;

private:
    static std::size_t Index(Side side) { return static_cast<std::size_t>(side - Blue); }
    static std::size_t To(SearchTurn turn) { return static_cast<std::size_t>(turn.To()); }
    static std::size_t Code(Side mover, PieceKind kind, SearchTurn turn) {
        return (Index(mover) * 2 + (turn.Own() ? 1 : 0)) * 3 + static_cast<std::size_t>(kind - Master);
    }
    static void Add(std::int16_t& value, int bonus) {
        value = static_cast<std::int16_t>(value + bonus - value * (bonus < 0 ? -bonus : bonus) / kMost);
    }

    std::array<std::array<std::int16_t, kSquares>, 12> byTo_{}; // by side, own or controlled, and kind
    std::array<std::array<std::array<std::int16_t, kSquares>, kSquares>, 2> byFrom_{};
    std::array<std::array<std::array<std::int16_t, kSquares>, 2>, 2> returns_{};
    std::array<std::array<SearchTurn, 2>, kDeepestPly + 2> killers_{};
};

} // namespace tarveth::computer
