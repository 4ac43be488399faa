#include "computer/SearchPosition.h"

#include "computer/weights.h"
#include "computer/zobrist.h"

#include <cassert>

namespace tarveth::computer {

namespace {

int SignOf(Side side) {
    return side == Blue ? 1 : -1;
}

std::uint64_t StandingKey(Side side, PieceKind kind, int square) {
    return kZobrist.standing[SortOf(side, kind)][static_cast<std::size_t>(square)];
}

std::uint64_t JailedKey(Side side, PieceKind kind, int count) {
    return kZobrist.jailed[SortOf(side, kind)][static_cast<std::size_t>(count)];
}

} // namespace

SearchPosition::SearchPosition(const CompactGame& rules)
    : rules_(rules), barredKey_(BarredKey()), score_(FreshScore()) {
    key_ = FreshKey() ^ barredKey_;
}

void SearchPosition::Play(SearchTurn turn) {
    CompactTurn played{rules_.PieceAt(turn.From()), turn.From(), turn.To(), turn.Own()};
    const Side side = turn.Own() ? Turn() : Opponent(Turn());
    if (turn.IsCapture()) {
        played.captured = rules_.PieceAt(turn.To());
        Take(turn.To());
    }
    Move(side, rules_.KindOn(side, turn.From()), turn.From(), turn.To());
    if (turn.HasReturn()) {
        played.returnKind = turn.ReturnKind();
        played.returnTo = turn.ReturnTo();
        PutBack(turn.ReturnKind(), turn.ReturnTo());
    }
    rules_.Play(played);
    key_ ^= kZobrist.redToMove;
    barredKey_ = BarredKey();
    assert(Key() == FreshKey() && score_ == FreshScore());
}

void SearchPosition::Pass() {
    rules_.Pass();
    key_ ^= kZobrist.redToMove;
    barredKey_ = 0;
}

void SearchPosition::Move(Side side, PieceKind kind, int from, int to) {
    key_ ^= StandingKey(side, kind, from) ^ StandingKey(side, kind, to);
    score_ += SignOf(side) * (SquareValue(kind, to) - SquareValue(kind, from));
}

void SearchPosition::Take(int square) {
    const Side side = (rules_.Standing(Blue) & SetOf(square)) != 0 ? Blue : Red;
    const PieceKind kind = rules_.KindOn(side, square);
    key_ ^= StandingKey(side, kind, square);
    score_ -= SignOf(side) * SquareValue(kind, square);
    const int jailed = rules_.Jailed(side, kind);
    CountJail(side, kind, jailed, jailed + 1);
}

void SearchPosition::PutBack(PieceKind kind, int square) {
    key_ ^= StandingKey(Turn(), kind, square);
    score_ += SignOf(Turn()) * SquareValue(kind, square);
    const int jailed = rules_.Jailed(Turn(), kind);
    CountJail(Turn(), kind, jailed, jailed - 1);
}

void SearchPosition::CountJail(Side side, PieceKind kind, int before, int after) {
    key_ ^= JailedKey(side, kind, before) ^ JailedKey(side, kind, after);
    score_ -= SignOf(side) * (JailedValue(kind, after) - JailedValue(kind, before));
}

std::uint64_t SearchPosition::BarredKey() const {
    std::uint64_t key = 0;
    rules_.ForEachBar([&](int from, int to) {
        if (!rules_.CouldGo(from, to))
            return;
        key ^= kZobrist.barredPiece[static_cast<std::size_t>(from)] ^
               kZobrist.barredSquare[static_cast<std::size_t>(to)];
    });
    return key;
}

std::uint64_t SearchPosition::FreshKey() const {
    std::uint64_t key = Turn() == Red ? kZobrist.redToMove : 0;
    for (const Side side : {Blue, Red})
        for (const PieceKind kind : {Master, Officer, Pawn}) {
            for (SquareSet standing = rules_.Standing(side, kind); standing != 0;)
                key ^= StandingKey(side, kind, TakeFirst(standing));
            key ^= JailedKey(side, kind, rules_.Jailed(side, kind));
        }
    return key ^ BarredKey();
}

int SearchPosition::FreshScore() const {
    int score = 0;
    for (const Side side : {Blue, Red})
        for (const PieceKind kind : {Master, Officer, Pawn}) {
            for (SquareSet standing = rules_.Standing(side, kind); standing != 0;)
                score += SignOf(side) * SquareValue(kind, TakeFirst(standing));
            score -= SignOf(side) * JailedValue(kind, rules_.Jailed(side, kind));
        }
    return score;
}

} // namespace tarveth::computer
