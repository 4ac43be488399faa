// Alpha-beta search with iterative deepening. One Searcher is one thread's work; several may share a table.
#pragma once

#include "computer/History.h"
#include "computer/SearchPosition.h"
#include "computer/TranspositionTable.h"
#include "computer/TurnPicker.h"
#include "computer/evaluation.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace tarveth::computer {

using Clock = std::chrono::steady_clock;

// When a search ends; the first that is reached decides.
struct SearchLimits {
    std::optional<Clock::time_point> until;
    std::uint64_t nodes = 0; // 0 for no limit
    int depth = kDeepestPly;
    std::uint64_t enough =
        0; // nodes after which the search ends once `leastDepth` has been searched; 0 for no such
    int leastDepth = 0;
    int firstDepth = 1;
};

struct SearchResult {
    SearchTurn turn; // none when the side to move has no turn
    int value = 0;   // for the side to move
    int depth = 0;   // the last one searched to its end
    std::uint64_t nodes = 0;
    std::vector<SearchTurn> line;
};

class Searcher {
public:
    explicit Searcher(TranspositionTable& table);

    // The best turn of a game that is not over. `earlier` are the keys of the positions since the last
    // capture, oldest first, without the present one. Ends soon after `stop` is requested, with what it has.
    // `tell` is called after every depth.
    SearchResult Think(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
                       const SearchLimits& limits, const std::stop_token& stop,
                       const std::function<void(const SearchResult&)>& tell = {});

    // The value of a position searched to this depth, with a full window; nothing when a limit came first.
    std::optional<int> ValueOf(const SearchPosition& position, int depth, const SearchLimits& limits,
                               const std::stop_token& stop);

    std::uint64_t Nodes() const { return nodes_; }
    // Gives the evaluation a small disturbance, so that games differ; 0 for none.
    void SetSeed(std::uint64_t seed) { seed_ = seed; }
    // Looks at every turn to the same depth and takes the evaluation there: what alpha-beta alone finds, for
    // checking it against minimax.
    void SearchPlainly() { plain_ = true; }
    // Forgets what earlier searches taught it; the table is its owner's to clear.
    void Forget();

    // So many nodes are searched between two looks at the clock and the stop token.
    static constexpr std::uint64_t kNodesBetweenChecks = 1024;

private:
    struct TriedTurns { // the first of those that did not refute the turn before them
        std::array<SearchTurn, 48> turns;
        std::size_t count = 0;
        void Add(SearchTurn turn) {
            if (count < turns.size())
                turns[count++] = turn;
        }
    };
    struct Node { // what all of one position's turns have in common
        int depth, alpha, beta, ply;
        bool pv, danger;
        int standing; // evaluation
    };

    void Begin(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
               const SearchLimits& limits, const std::stop_token& stop);
    void SearchDepth(const SearchPosition& position, int depth, SearchResult& result);
    int Search(const SearchPosition& position, int depth, int alpha, int beta, int ply,
               bool afterPass = false);
    int SearchTurns(const SearchPosition& position, const Node& node, SearchTurn first);
    int Try(const SearchPosition& position, const Node& node, SearchTurn turn, int index, int reduction,
            int alpha);
    std::optional<int> PruneWhole(const SearchPosition& position, const Node& node, bool afterPass);
    int ReductionOf(const Node& node, const SearchPosition& position, SearchTurn turn, int index,
                    bool goodCapture) const;
    bool CanSkip(const Node& node, SearchTurn turn, int index, int reduction) const;
    void LearnFromCut(const SearchPosition& position, const Node& node, SearchTurn turn,
                      const TriedTurns& before);
    int Quiesce(const SearchPosition& position, int alpha, int beta, int ply);
    int ValueAtEnd(const SearchPosition& position, int ply) const;
    int EvaluateHere(const SearchPosition& position) const;
    bool RepeatsEarlier() const;
    void Enter(const SearchPosition& next, SearchTurn turn);
    void Leave();
    void CheckLimits();
    void KeepLine(int ply, SearchTurn turn);

    TranspositionTable& table_;
    History history_;
    std::vector<ScoredTurn> scratch_;
    std::vector<std::uint64_t> path_;     // keys up to the present position
    std::vector<std::size_t> pathStarts_; // where in it a repetition could begin, for every position entered
    std::vector<std::vector<SearchTurn>> lines_;
    SearchLimits limits_;
    std::stop_token stop_;
    std::uint64_t nodes_ = 0;
    std::uint64_t nextCheck_ = 0;
    int depthDone_ = 0;
    int rootDepth_ = 0;
    std::uint64_t seed_ = 0;
    bool stopped_ = false;
    bool plain_ = false;
};

} // namespace tarveth::computer
