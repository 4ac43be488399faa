// Gives the turns of a position one after the other, the most promising first, and makes no list that is not
// needed: most positions are done with after a turn or two.
#pragma once

#include "computer/History.h"
#include "computer/SearchPosition.h"

#include <array>
#include <vector>

namespace tarveth::computer {

struct ScoredTurn {
    SearchTurn turn;
    int score = 0;
};

class TurnPicker {
public:
    // What a picker is asked for: every turn, or only captures of opposing pieces, each with one return.
    enum class Scope { All, Captures };

    // `first` comes first when it is legal here. `store` is scratch space that the pickers of one line share,
    // each behind the one before it.
    TurnPicker(const SearchPosition& position, SearchTurn first, const History& history, int ply,
               std::vector<ScoredTurn>& store, Scope scope);
    ~TurnPicker() { store_.resize(begin_); }
    TurnPicker(const TurnPicker&) = delete;
    TurnPicker& operator=(const TurnPicker&) = delete;

    // No turn after the last.
    SearchTurn Next();
    // Whether the turn given last was promising for what it takes.
    bool LastWasGoodCapture() const { return stage_ == Stage::Captures; }
    // What an estimate says that the turn given last gains by taking and bringing back.
    int LastGain() const { return lastScore_ / kGainScale; }

private:
    enum class Stage { First, Captures, Rest };
    static constexpr int kGainScale = 16;
    static constexpr std::size_t kEarlyReturns = 3; // of a kind, for one capture

    // Where a piece of one kind may come back, the squares that look best first.
    struct ReturnSquares {
        bool known = false;
        std::array<int, kSquares> score;
        std::array<int, kEarlyReturns> best{};
    };

    bool IsLegal(SearchTurn turn) const;
    bool IsLegalReturn(SearchTurn turn) const;
    void ListCaptures();
    void AddCapture(const Mover& mover, int to);
    void AddReturns(SearchTurn capture, int score, PieceKind kind);
    void AddBestReturn(SearchTurn capture, int score, const CaptureOutcome& outcome);
    void ListRest();
    void AddLateReturns(const Mover& mover, int to);
    int QuietScore(PieceKind kind, SearchTurn turn) const;
    const ReturnSquares& ReturnsOf(PieceKind kind);
    int ReturnScore(PieceKind kind, int square) const;
    SquareSet Attacked();
    PieceKind KindOf(const Mover& mover) const;
    void Add(SearchTurn turn, int score);

    const SearchPosition& position_;
    const CompactGame& rules_;
    const History& history_;
    std::vector<ScoredTurn>& store_;
    std::size_t begin_, next_;
    SearchTurn first_;
    int ply_;
    Scope scope_;
    Stage stage_ = Stage::First;
    int lastScore_ = 0;
    bool attackedKnown_ = false;
    SquareSet attacked_ = 0;               // by the opponent
    std::array<ReturnSquares, 2> returns_; // Officers, Pawns
    std::array<Mover, kPieces> movers_;
    std::size_t moverCount_ = 0;
};

} // namespace tarveth::computer
