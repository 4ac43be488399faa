#include "computer/TurnPicker.h"

#include "computer/attacks.h"
#include "computer/weights.h"

#include <algorithm>

namespace tarveth::computer {

namespace {

constexpr int kWinScore = 1'000'000;
constexpr int kKillerScore = 20'000;
constexpr int kOwnCaptureScore = -40'000;
constexpr int kLateReturnScore = -20'000;
constexpr int kPawnScore = 100;

// What losing one more piece of the kind costs its side.
int CostOfLosing(const CompactGame& position, Side side, PieceKind kind) {
    const int jailed = position.Jailed(side, kind);
    return JailedValue(kind, jailed + 1) - JailedValue(kind, jailed);
}

int GainOfReturn(const CompactGame& position, Side side, PieceKind kind) {
    const int jailed = position.Jailed(side, kind);
    return JailedValue(kind, jailed) - JailedValue(kind, jailed - 1);
}

} // namespace

TurnPicker::TurnPicker(const SearchPosition& position, SearchTurn first, const History& history, int ply,
                       std::vector<ScoredTurn>& store, Scope scope)
    : position_(position),
      rules_(position.Rules()),
      history_(history),
      store_(store),
      begin_(store.size()),
      next_(begin_),
      first_(first),
      ply_(ply),
      scope_(scope) {
    rules_.ForEachMover([this](const Mover& mover) { movers_[moverCount_++] = mover; });
    if (!first_.IsNone() && !IsLegal(first_))
        first_ = SearchTurn();
}

SearchTurn TurnPicker::Next() {
    if (stage_ == Stage::First) {
        stage_ = Stage::Captures;
        ListCaptures();
        if (!first_.IsNone()) {
            lastScore_ = 0;
            return first_;
        }
    }
    while (true) {
        const auto best =
            std::max_element(store_.begin() + static_cast<std::ptrdiff_t>(next_), store_.end(),
                             [](const ScoredTurn& a, const ScoredTurn& b) { return a.score < b.score; });
        if (best == store_.end() || (stage_ == Stage::Captures && best->score < 0)) {
            if (stage_ == Stage::Rest || scope_ == Scope::Captures)
                return {};
            stage_ = Stage::Rest;
            ListRest();
            continue;
        }
        std::swap(*best, store_[next_]);
        const ScoredTurn& chosen = store_[next_++];
        lastScore_ = chosen.score;
        if (chosen.turn != first_)
            return chosen.turn;
    }
}

bool TurnPicker::IsLegal(SearchTurn turn) const {
    const auto* const end = movers_.begin() + moverCount_;
    const auto* const mover = std::find_if(movers_.begin(), end, [&](const Mover& m) {
        return m.from == turn.From() && m.own == turn.Own() && (m.destinations & SetOf(turn.To())) != 0;
    });
    if (mover == end || ((rules_.Occupied() & SetOf(turn.To())) != 0) != turn.IsCapture())
        return false;
    return turn.IsCapture() ? IsLegalReturn(turn) : !turn.HasReturn();
}

bool TurnPicker::IsLegalReturn(SearchTurn turn) const {
    const Side side = (rules_.Standing(Blue) & SetOf(turn.To())) != 0 ? Blue : Red;
    const CaptureOutcome outcome = rules_.OutcomeOfCapture(side, rules_.KindOn(side, turn.To()));
    if (!turn.HasReturn())
        return !outcome.ReturnDue();
    const SquareSet free = ~rules_.Occupied() | SetOf(turn.From());
    return (turn.ReturnKind() == Pawn ? outcome.pawnReturns : outcome.officerReturns) &&
           (free & SetOf(turn.ReturnTo())) != 0;
}

PieceKind TurnPicker::KindOf(const Mover& mover) const {
    return rules_.KindOn(mover.own ? rules_.Turn() : Opponent(rules_.Turn()), mover.from);
}

SquareSet TurnPicker::Attacked() {
    if (!attackedKnown_) {
        attacked_ = AttackedBy(rules_, Opponent(rules_.Turn()));
        attackedKnown_ = true;
    }
    return attacked_;
}

void TurnPicker::Add(SearchTurn turn, int score) {
    store_.push_back({turn, score});
}

void TurnPicker::ListCaptures() {
    const SquareSet theirs = rules_.Standing(Opponent(rules_.Turn()));
    for (std::size_t i = 0; i < moverCount_; ++i)
        for (SquareSet taken = movers_[i].destinations & theirs; taken != 0;)
            AddCapture(movers_[i], TakeFirst(taken));
}

void TurnPicker::AddCapture(const Mover& mover, int to) {
    const Side other = Opponent(rules_.Turn());
    const PieceKind victim = rules_.KindOn(other, to);
    const SearchTurn turn(mover.from, to, mover.own, true);
    const CaptureOutcome outcome = rules_.OutcomeOfCapture(other, victim);
    if (outcome.endsGame) {
        Add(turn, kWinScore);
        return;
    }
    const int gain = CostOfLosing(rules_, other, victim) + SquareValue(victim, to);
    int score = gain * kGainScale;
    if (mover.own) {
        const int risk = CostOfLosing(rules_, rules_.Turn(), KindOf(mover));
        if (risk > gain && (Attacked() & SetOf(to)) != 0)
            score -= risk * kGainScale;
        else
            score -= risk / 8;
    }
    if (!outcome.ReturnDue()) {
        Add(turn, score);
        return;
    }
    if (scope_ == Scope::Captures) {
        AddBestReturn(turn, score, outcome);
        return;
    }
    if (outcome.officerReturns)
        AddReturns(turn, score, Officer);
    if (outcome.pawnReturns)
        AddReturns(turn, score, Pawn);
}

const TurnPicker::ReturnSquares& TurnPicker::ReturnsOf(PieceKind kind) {
    ReturnSquares& returns = returns_[kind == Pawn ? 1 : 0];
    if (returns.known)
        return returns;
    returns.known = true;
    returns.best.fill(kNoSquare);
    for (SquareSet free = ~rules_.Occupied(); free != 0;) {
        int square = TakeFirst(free);
        returns.score[static_cast<std::size_t>(square)] = ReturnScore(kind, square);
        for (int& best : returns.best)
            if (best == kNoSquare || returns.score[static_cast<std::size_t>(square)] >
                                         returns.score[static_cast<std::size_t>(best)]) {
                std::swap(best, square);
                if (square == kNoSquare)
                    break;
            }
    }
    return returns;
}

int TurnPicker::ReturnScore(PieceKind kind, int square) const {
    const auto at = static_cast<std::size_t>(square);
    const Side other = Opponent(rules_.Turn());
    const SquareSet seen = kind == Pawn ? kWithin[1][at] : kStraightNeighbours[at];
    int score = SquareValue(kind, square) + history_.OfReturn(rules_.Turn(), kind, square) / 64;
    if ((seen & rules_.Standing(other, Master)) != 0)
        score += kPawnScore / 2;
    if ((seen & rules_.Standing(other, Officer)) != 0)
        score += kPawnScore / 5;
    if ((attacked_ & SetOf(square)) != 0)
        score -= kPawnScore;
    return score;
}

void TurnPicker::AddReturns(SearchTurn capture, int score, PieceKind kind) {
    Attacked();
    score += GainOfReturn(rules_, rules_.Turn(), kind) * kGainScale;
    const ReturnSquares& returns = ReturnsOf(kind);
    for (const int square : returns.best)
        if (square != kNoSquare)
            Add(capture.WithReturn(kind, square), score + returns.score[static_cast<std::size_t>(square)]);
}

void TurnPicker::AddBestReturn(SearchTurn capture, int score, const CaptureOutcome& outcome) {
    Attacked();
    const PieceKind kind = outcome.officerReturns ? Officer : Pawn;
    const int best = ReturnsOf(kind).best[0];
    Add(capture.WithReturn(kind, best == kNoSquare ? capture.From() : best),
        score + GainOfReturn(rules_, rules_.Turn(), kind) * kGainScale);
}

void TurnPicker::ListRest() {
    Attacked();
    const SquareSet occupied = rules_.Occupied();
    const SquareSet mine = rules_.Standing(rules_.Turn());
    for (std::size_t i = 0; i < moverCount_; ++i) {
        const Mover& mover = movers_[i];
        const PieceKind kind = KindOf(mover);
        for (SquareSet quiet = mover.destinations & ~occupied; quiet != 0;) {
            const SearchTurn turn(mover.from, TakeFirst(quiet), mover.own, false);
            Add(turn, QuietScore(kind, turn));
        }
        for (SquareSet taken = mover.destinations & mine; taken != 0;)
            if (const int to = TakeFirst(taken); mover.own)
                Add(SearchTurn(mover.from, to, true, true), kOwnCaptureScore);
        for (SquareSet taken = mover.destinations & occupied & ~mine; taken != 0;)
            AddLateReturns(mover, TakeFirst(taken));
    }
}

int TurnPicker::QuietScore(PieceKind kind, SearchTurn turn) const {
    if (const int rank = history_.KillerRank(ply_, turn); rank != 0)
        return kKillerScore + rank;
    const Side mover = rules_.Turn();
    int score = history_.Of(mover, kind, turn) +
                8 * (SquareValue(kind, turn.To()) - SquareValue(kind, turn.From())) * (turn.Own() ? 1 : -1);
    if (!turn.Own())
        return score;
    const int worth = kind == Master ? 5000 : kind == Officer ? 3000 : 1000;
    if ((attacked_ & SetOf(turn.From())) != 0)
        score += worth;
    if ((attacked_ & SetOf(turn.To())) != 0)
        score -= worth;
    return score;
}

void TurnPicker::AddLateReturns(const Mover& mover, int to) {
    const Side other = Opponent(rules_.Turn());
    const CaptureOutcome outcome = rules_.OutcomeOfCapture(other, rules_.KindOn(other, to));
    const SearchTurn capture(mover.from, to, mover.own, true);
    for (const PieceKind kind : {Officer, Pawn}) {
        if (!(kind == Pawn ? outcome.pawnReturns : outcome.officerReturns))
            continue;
        const ReturnSquares& returns = ReturnsOf(kind);
        for (SquareSet free = ~rules_.Occupied(); free != 0;) {
            const int square = TakeFirst(free);
            if (std::find(returns.best.begin(), returns.best.end(), square) == returns.best.end())
                Add(capture.WithReturn(kind, square),
                    kLateReturnScore + returns.score[static_cast<std::size_t>(square)]);
        }
        Add(capture.WithReturn(kind, mover.from), kLateReturnScore);
    }
}

} // namespace tarveth::computer
