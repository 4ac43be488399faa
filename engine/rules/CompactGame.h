// A position as the turn lister and the turn counter see it: what the rules ask for, in a few hundred bytes
// that are copied in no time. Both list their turns here, so that they cannot disagree.
#pragma once

#include "engine/rules/PieceFacts.h"
#include "engine/rules/SquareSet.h"

#include <array>
#include <bit>
#include <cstdint>
#include <string>

namespace tarveth {

// A piece that may be selected, and every square where it may be placed.
struct Mover {
    int piece;
    int from;
    bool own; // moved by its owner, not under control
    SquareSet destinations;
};

// A complete turn; squares by number.
struct CompactTurn {
    int piece = 0;
    int from = 0, to = 0;
    bool own = true;
    int captured = 0; // 0 for none
    bool endsGame = false;
    PieceKind returnKind{};   // 0 for no return
    int returnTo = kNoSquare; // where the returned piece is put
};

// What follows from a capture.
struct CaptureOutcome {
    bool endsGame = false;
    bool pawnReturns = false; // with both, the player has the choice
    bool officerReturns = false;
    bool ReturnDue() const { return pawnReturns || officerReturns; }
};

// One value for each side and kind.
template <class Value>
class SideKindTable {
public:
    constexpr Value& operator()(Side side, PieceKind kind) { return values_[Index(side, kind)]; }
    constexpr const Value& operator()(Side side, PieceKind kind) const { return values_[Index(side, kind)]; }

private:
    static constexpr std::size_t Index(Side side, PieceKind kind) {
        return static_cast<std::size_t>((side - Blue) * Pawn + kind - Master);
    }
    std::array<Value, std::size_t{2} * Pawn> values_{};
};

// Pieces that may be moved by the other side than their own.
struct Controlled {
    SquareSet officers, pawns;
};

class CompactGame {
public:
    // Of a game at rest in state 1. `facts` are those of the same game; they must outlive the position and
    // its copies.
    CompactGame(const Game& game, const PieceFacts& facts);

    bool IsOver() const { return HasLost(Blue, jailed_) || HasLost(Red, jailed_); }
    Side Turn() const { return turn_; }
    SquareSet Standing(Side side, PieceKind kind) const { return standing_(side, kind); }
    SquareSet Standing(Side side) const {
        return standing_(side, Master) | standing_(side, Officer) | standing_(side, Pawn);
    }
    SquareSet Occupied() const { return Standing(Blue) | Standing(Red); }
    int PieceAt(int square) const { return occupant_[static_cast<std::size_t>(square)]; }
    // Of the piece of `side` that stands on the square.
    PieceKind KindOn(Side side, int square) const;
    int Jailed(Side side, PieceKind kind) const { return jailed_(side, kind); }
    bool HasLost(Side side) const { return HasLost(side, jailed_); }

    // What the capture of a piece of that side and kind leads to.
    CaptureOutcome OutcomeOfCapture(Side side, PieceKind kind) const;
    // How many squares a returned piece may choose from: those free now and the one the mover leaves.
    int CountReturnSquares() const { return kSquares - CountOf(Occupied()) + 1; }

    // Calls visit(const Mover&) for every piece with somewhere to go. The game must not be over.
    template <class Visit>
    void ForEachMover(Visit visit) const;
    // Calls visit(const CompactTurn&) for every complete turn. The game must not be over.
    template <class Visit>
    void ForEachTurn(Visit visit) const;

    // Plays a turn that ForEachTurn has listed.
    void Play(const CompactTurn& turn);

    // Gives the turn to the other side, as no player may; no piece is barred from any square then.
    void Pass();

    // Calls visit(int from, int to) for every piece that the Rule of Reflection bars from a square.
    template <class Visit>
    void ForEachBar(Visit visit) const;
    // Whether the side to move could put the piece of one square on another, if no piece were barred.
    bool CouldGo(int from, int to) const;

    // The pieces of the opponent that `side` could move if it had the turn.
    Controlled ControlledPieces(Side side) const;
    // Whether one of `side`'s pieces projects control onto a piece of that kind on the square.
    bool InZone(Side side, PieceKind kind, int square) const;
    bool HasControlPower(Side side) const {
        return jailed_(side, Pawn) < kPawnsPerSide && jailed_(side, Officer) < kOfficersPerSide;
    }

    // The first of its tables that contradicts another; empty when all agree. Asserted after every turn.
    std::string Check() const;

private:
    using JailCounts = SideKindTable<std::int8_t>;

    static bool HasLost(Side side, const JailCounts& jailed);
    bool MayReturn(PieceKind kind) const { return jailed_(turn_, kind) > 0 && offBoard_(turn_, kind) != 0; }
    int BarredSquare(int piece) const {
        if (lastMoved_ == 0)
            return facts_->BarredAtFirst(piece);
        return piece == lastMoved_ ? lastFrom_ : kNoSquare;
    }
    std::string CheckSets() const;
    std::string CheckJail() const;
    void AddPiece(int index, const PieceRecord& piece);
    void PlayReturn(PieceKind kind, int to);
    template <class Visit>
    void VisitMovers(SquareSet movers, bool own, SquareSet takeable, Visit& visit) const;
    template <class Visit>
    void VisitCaptures(CompactTurn turn, Visit& visit) const;

    Side turn_;
    SideKindTable<SquareSet> standing_;
    SideKindTable<std::uint32_t> offBoard_;        // bit i is piece i
    JailCounts jailed_;                            // entries of JailTable
    std::array<std::int8_t, kSquares> occupant_{}; // by square; 0 where it is free
    std::int8_t lastMoved_ = 0;                    // the piece of the turn played last; 0 before the first
    std::int8_t lastFrom_ = kNoSquare;             // where the Rule of Reflection bars that piece from
    std::int8_t lastTo_ = kNoSquare;               // where it stands
    const PieceFacts* facts_;
};

template <class Visit>
void CompactGame::VisitMovers(SquareSet movers, bool own, SquareSet takeable, Visit& visit) const {
    const SquareSet occupied = Occupied();
    while (movers != 0) {
        const int from = TakeFirst(movers);
        const int piece = PieceAt(from);
        const SquareSet destinations = SquaresInReach(from, facts_->ReachOf(piece, own), occupied) &
                                       (takeable | ~occupied) & ~SetOf(BarredSquare(piece));
        if (destinations != 0)
            visit(Mover{piece, from, own, destinations});
    }
}

template <class Visit>
void CompactGame::ForEachMover(Visit visit) const {
    const SquareSet mine = Standing(turn_);
    const SquareSet theirs = Standing(Opponent(turn_));
    // Of one's own pieces, only a Master may take its own side; a controlled piece takes nothing else.
    VisitMovers(standing_(turn_, Master), true, mine | theirs, visit);
    VisitMovers(standing_(turn_, Officer), true, theirs, visit);
    VisitMovers(standing_(turn_, Pawn), true, theirs, visit);
    const Controlled controlled = ControlledPieces(turn_);
    VisitMovers(controlled.officers, false, theirs, visit);
    VisitMovers(controlled.pawns, false, theirs, visit);
}

template <class Visit>
void CompactGame::ForEachBar(Visit visit) const {
    SquareSet standing = lastMoved_ == 0 ? Occupied() : SetOf(lastTo_);
    while (standing != 0) {
        const int from = TakeFirst(standing);
        const int to = BarredSquare(PieceAt(from));
        if (to != kNoSquare && to != from)
            visit(from, to);
    }
}

template <class Visit>
void CompactGame::VisitCaptures(CompactTurn turn, Visit& visit) const {
    const Side side = (Standing(Blue) & SetOf(turn.to)) != 0 ? Blue : Red;
    const CaptureOutcome outcome = OutcomeOfCapture(side, KindOn(side, turn.to));
    turn.endsGame = outcome.endsGame;
    if (!outcome.ReturnDue()) {
        visit(turn);
        return;
    }
    for (const PieceKind kind : {Officer, Pawn}) {
        if (!(kind == Pawn ? outcome.pawnReturns : outcome.officerReturns))
            continue;
        turn.returnKind = kind;
        for (SquareSet free = ~Occupied() | SetOf(turn.from); free != 0;) {
            turn.returnTo = TakeFirst(free);
            visit(turn);
        }
    }
}

template <class Visit>
void CompactGame::ForEachTurn(Visit visit) const {
    ForEachMover([&](const Mover& mover) {
        CompactTurn turn{mover.piece, mover.from, kNoSquare, mover.own};
        for (SquareSet destinations = mover.destinations; destinations != 0;) {
            turn.to = TakeFirst(destinations);
            turn.captured = PieceAt(turn.to);
            if (turn.captured != 0)
                VisitCaptures(turn, visit);
            else
                visit(turn);
        }
    });
}

} // namespace tarveth
