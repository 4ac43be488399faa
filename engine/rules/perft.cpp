#include "engine/rules/perft.h"

#include "engine/rules/CompactGame.h"

#include <array>

namespace tarveth {

namespace {

// How many of some sets hold each square, as binary digits: bit n of digit k stands for 2^k of square n.
// Adding a set and counting on a set of squares cost a few operations on whole boards, however many sets
// there were.
class Tally {
public:
    void Add(SquareSet set) {
        for (SquareSet& digit : digits_) {
            const SquareSet carry = digit & set;
            digit ^= set;
            set = carry;
        }
    }
    bool HoldsAny(SquareSet squares) const {
        return ((digits_[0] | digits_[1] | digits_[2] | digits_[3]) & squares) != 0;
    }
    std::uint64_t CountOn(SquareSet squares) const {
        int count = 0;
        for (std::size_t i = digits_.size(); i-- > 0;)
            count = 2 * count + CountOf(digits_[i] & squares);
        return static_cast<std::uint64_t>(count);
    }

private:
    std::array<SquareSet, 4> digits_{}; // a side moves at most 13 pieces to one square
};

// The turns of one position, counted without playing them: the destinations of all pieces are counted by what
// stands there, and a return multiplies the capture by the squares it may go to.
class LastTurn {
public:
    explicit LastTurn(const CompactGame& position) : position_(position), occupied_(position.Occupied()) {}

    TurnCounts Count() {
        Tally own;
        Tally controlled;
        position_.ForEachMover(
            [&](const Mover& mover) { (mover.own ? own : controlled).Add(mover.destinations); });
        counts_.own = CountMoves(own);
        counts_.controlled = CountMoves(controlled);
        counts_.turns = counts_.own + counts_.controlled;
        return counts_;
    }

private:
    std::uint64_t CountMoves(const Tally& moves) {
        const std::uint64_t turns = moves.CountOn(~occupied_);
        if (!moves.HoldsAny(occupied_))
            return turns;
        std::uint64_t captures = 0;
        for (const Side side : {Blue, Red})
            for (const PieceKind kind : {Master, Officer, Pawn})
                if (const SquareSet standing = position_.Standing(side, kind); moves.HoldsAny(standing))
                    captures += CountCaptures(side, kind, moves.CountOn(standing));
        counts_.captures += captures;
        return turns + captures;
    }

    std::uint64_t CountCaptures(Side side, PieceKind kind, std::uint64_t taken) {
        const CaptureOutcome outcome = position_.OutcomeOfCapture(side, kind);
        if (side == position_.Turn())
            counts_.ownCaptures += taken;
        if (outcome.endsGame)
            counts_.wins += taken;
        if (!outcome.ReturnDue())
            return taken;
        const int choices = (outcome.pawnReturns ? 1 : 0) + (outcome.officerReturns ? 1 : 0);
        const std::uint64_t turns =
            taken * static_cast<std::uint64_t>(choices * position_.CountReturnSquares());
        counts_.returns += turns;
        return turns;
    }

    const CompactGame& position_;
    SquareSet occupied_;
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
    const PieceFacts facts(game);
    return CountFrom(CompactGame(game, facts), depth);
}

} // namespace tarveth
