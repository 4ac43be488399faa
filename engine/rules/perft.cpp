#include "engine/rules/perft.h"

#include "engine/rules/CompactGame.h"

#include <array>

namespace tarveth {

namespace {

// The turns of one position, counted without playing them: the destinations of a piece are counted by what
// stands there, and a return multiplies the capture by the squares it may go to.
class LastTurn {
public:
    explicit LastTurn(const CompactGame& position) : position_(position), occupied_(position.Occupied()) {
        const auto squares = static_cast<std::uint64_t>(position.CountReturnSquares());
        for (std::size_t i = 0; i < takings_.size(); ++i) {
            Taking& taking = takings_[i];
            taking.own = i >= Pawn;
            const Side side = taking.own ? position.Turn() : Opponent(position.Turn());
            const auto kind = static_cast<PieceKind>(i % Pawn + Master);
            taking.standing = position.Standing(side, kind);
            const CaptureOutcome outcome = position.OutcomeOfCapture(side, kind);
            taking.returns = ((outcome.pawnReturns ? 1U : 0U) + (outcome.officerReturns ? 1U : 0U)) * squares;
            taking.wins = outcome.endsGame;
        }
    }

    TurnCounts Count() {
        position_.ForEachMover([this](const Mover& mover) {
            std::uint64_t turns = static_cast<std::uint64_t>(CountOf(mover.destinations & ~occupied_));
            if ((mover.destinations & occupied_) != 0)
                turns += CountCaptures(mover.destinations);
            counts_.turns += turns;
            (mover.own ? counts_.own : counts_.controlled) += turns;
        });
        return counts_;
    }

private:
    // Pieces whose capture has the same consequences.
    struct Taking {
        SquareSet standing = 0;
        std::uint64_t returns = 0; // ways to bring a piece back for one of them
        bool own = false;
        bool wins = false;
    };

    std::uint64_t CountCaptures(SquareSet destinations) {
        std::uint64_t turns = 0;
        for (const Taking& taking : takings_) {
            const auto taken = static_cast<std::uint64_t>(CountOf(destinations & taking.standing));
            turns += taking.returns == 0 ? taken : taken * taking.returns;
            counts_.returns += taken * taking.returns;
            counts_.ownCaptures += taking.own ? taken : 0;
            counts_.wins += taking.wins ? taken : 0;
        }
        counts_.captures += turns;
        return turns;
    }

    const CompactGame& position_;
    SquareSet occupied_;
    std::array<Taking, std::size_t{2} * Pawn> takings_; // the opponent's kinds, then one's own
    TurnCounts counts_;
};

TurnCounts CountFrom(const CompactGame& position, int depth) {
    if (position.IsOver())
        return {};
    if (depth <= 1)
        return LastTurn(position).Count();
    TurnCounts counts;
    position.ForEachTurn([&](const CompactTurn& turn) {
        CompactGame next = position;
        next.Play(turn);
        counts += CountFrom(next, depth - 1);
    });
    return counts;
}

} // namespace

TurnCounts& TurnCounts::operator+=(const TurnCounts& other) {
    turns += other.turns;
    own += other.own;
    controlled += other.controlled;
    captures += other.captures;
    ownCaptures += other.ownCaptures;
    returns += other.returns;
    wins += other.wins;
    return *this;
}

TurnCounts CountTurns(const Game& game, int depth) {
    return CountFrom(CompactGame(game), depth);
}

} // namespace tarveth
