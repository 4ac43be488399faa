#include "computer/search.h"

#include "computer/attacks.h"
#include "computer/reductions.h"
#include "computer/weights.h"
#include "computer/zobrist.h"

#include <algorithm>
#include <cstdlib>

namespace tarveth::computer {

namespace {

// Values of won positions count from the root in the search, from the position itself in the table.
int ToTable(int value, int ply) {
    return value > kSurelyWon ? value + ply : value < -kSurelyWon ? value - ply : value;
}

int FromTable(int value, int ply) {
    return value > kSurelyWon ? value - ply : value < -kSurelyWon ? value + ply : value;
}

// Whether a stored value of this sort is all that a search in the window could find out.
bool Decides(Bound bound, int known, int alpha, int beta) {
    switch (bound) {
    case Bound::None:
        return false;
    case Bound::Lower:
        return known >= beta;
    case Bound::Upper:
        return known <= alpha;
    case Bound::Exact:
        break;
    }
    return true;
}

PieceKind KindMoved(const CompactGame& position, SearchTurn turn) {
    return position.KindOn(turn.Own() ? position.Turn() : Opponent(position.Turn()), turn.From());
}

} // namespace

Searcher::Searcher(TranspositionTable& table) : table_(table), lines_(kDeepestPly + 2) {
    scratch_.reserve(16'384);
}

void Searcher::Forget() {
    history_.Clear();
}

void Searcher::Begin(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
                     const SearchLimits& limits, const std::stop_token& stop) {
    limits_ = limits;
    stop_ = stop;
    stopped_ = false;
    nodes_ = nextCheck_ = 0;
    depthDone_ = 0;
    path_ = earlier;
    path_.push_back(position.Key());
    pathStarts_.assign(1, 0);
}

SearchResult Searcher::Think(const SearchPosition& position, const std::vector<std::uint64_t>& earlier,
                             const SearchLimits& limits, const std::stop_token& stop,
                             const std::function<void(const SearchResult&)>& tell) {
    Begin(position, earlier, limits, stop);
    history_.Age();
    SearchResult result;
    result.turn = TurnPicker(position, {}, history_, 0, scratch_, TurnPicker::Scope::All).Next();
    if (result.turn.IsNone())
        return result;
    for (int depth = limits.firstDepth; depth <= std::min(limits.depth, kDeepestPly - 1); ++depth) {
        SearchDepth(position, depth, result);
        result.nodes = nodes_;
        if (stopped_)
            break;
        result.depth = depthDone_ = depth;
        if (tell)
            tell(result);
        if (std::abs(result.value) > kSurelyWon && kWin - std::abs(result.value) <= depth)
            break; // nothing ends the game sooner
    }
    return result;
}

// One depth of the deepening. The value is expected near that of the depth before: a narrow window is quickly
// searched, and widened where the value is outside. A search that is stopped leaves the best turn it has
// found.
void Searcher::SearchDepth(const SearchPosition& position, int depth, SearchResult& result) {
    rootDepth_ = depth;
    int width = depth < 4 ? kInfinite : 25;
    int alpha = std::max(result.value - width, -kInfinite);
    int beta = std::min(result.value + width, kInfinite);
    while (true) {
        const int value = Search(position, depth, alpha, beta, 0);
        if (value > alpha && !lines_[0].empty()) {
            result.line = lines_[0];
            result.turn = result.line.front();
        }
        if (stopped_)
            return;
        result.value = value;
        if (value > alpha && value < beta)
            return;
        width *= 3;
        if (value <= alpha)
            alpha = std::max(value - width, -kInfinite);
        else
            beta = std::min(value + width, kInfinite);
    }
}

std::optional<int> Searcher::ValueOf(const SearchPosition& position, int depth, const SearchLimits& limits,
                                     const std::stop_token& stop) {
    Begin(position, {}, limits, stop);
    rootDepth_ = std::max(depth, 1);
    const int value = Search(position, depth, -kInfinite, kInfinite, 0);
    return stopped_ ? std::nullopt : std::optional(value);
}

void Searcher::CheckLimits() {
    if (++nodes_ < nextCheck_)
        return;
    nextCheck_ = nodes_ + kNodesBetweenChecks;
    for (const std::uint64_t limit : {limits_.nodes, limits_.enough})
        if (limit > nodes_)
            nextCheck_ = std::min(nextCheck_, limit);
    const bool allUsed = limits_.nodes != 0 && nodes_ >= limits_.nodes;
    const bool enough = limits_.enough != 0 && nodes_ >= limits_.enough && depthDone_ >= limits_.leastDepth;
    stopped_ = stopped_ || allUsed || enough || stop_.stop_requested() ||
               (limits_.until && Clock::now() >= *limits_.until);
}

void Searcher::Enter(const SearchPosition& next, SearchTurn turn) {
    // Nothing that was before a capture can come back.
    pathStarts_.push_back(turn.IsCapture() ? path_.size() : pathStarts_.back());
    path_.push_back(next.Key());
}

void Searcher::Leave() {
    path_.pop_back();
    pathStarts_.pop_back();
}

// A position that was there before is worth nothing: who stands better has to find something else. Four turns
// are the fewest that lead back.
bool Searcher::RepeatsEarlier() const {
    const std::size_t last = path_.size() - 1;
    for (std::size_t back = 4; last >= pathStarts_.back() + back; back += 2)
        if (path_[last - back] == path_[last])
            return true;
    return false;
}

int Searcher::EvaluateHere(const SearchPosition& position) const {
    const int value = Evaluate(position);
    if (seed_ == 0)
        return value;
    std::uint64_t state = position.Key() ^ seed_;
    return value + static_cast<int>(NextRandom(state) % 9) - 4;
}

// Of a game that is over: who captured the last Master, or the last Officer and Pawn, has won.
int Searcher::ValueAtEnd(const SearchPosition& position, int ply) const {
    return position.Rules().HasLost(position.Turn()) ? ply - kWin : kWin - ply;
}

void Searcher::KeepLine(int ply, SearchTurn turn) {
    const auto at = static_cast<std::size_t>(ply);
    lines_[at].assign(1, turn);
    lines_[at].insert(lines_[at].end(), lines_[at + 1].begin(), lines_[at + 1].end());
}

int Searcher::Search(const SearchPosition& position, int depth, int alpha, int beta, int ply,
                     bool afterPass) {
    lines_[static_cast<std::size_t>(ply)].clear();
    if (position.Rules().IsOver())
        return ValueAtEnd(position, ply);
    if (ply > 0 && RepeatsEarlier())
        return 0;
    // A line in which the last Master is threatened is forced, and is followed further.
    const bool danger = !plain_ && LastMasterInDanger(position.Rules(), position.Turn());
    if (danger && ply > 0 && ply < 2 * rootDepth_)
        ++depth;
    if (depth <= 0 || ply >= kDeepestPly)
        return plain_ ? Evaluate(position) : Quiesce(position, alpha, beta, ply);
    CheckLimits();
    if (stopped_)
        return alpha;
    // No value better than winning at once, none worse than losing at once.
    alpha = std::max(alpha, ply - kWin);
    beta = std::min(beta, kWin - ply - 1);
    if (alpha >= beta)
        return alpha;
    Node node{depth, alpha, beta, ply, beta - alpha > 1, danger, 0};
    const TableEntry entry = table_.Find(position.Key());
    const int known = FromTable(entry.value, ply);
    const bool deepEnough = plain_ ? entry.depth == depth : entry.depth >= depth;
    if (!node.pv && deepEnough && Decides(entry.bound, known, alpha, beta))
        return known;
    node.standing = EvaluateHere(position);
    if (entry.bound == Bound::Exact || (entry.bound == Bound::Lower && known > node.standing) ||
        (entry.bound == Bound::Upper && known < node.standing))
        node.standing = known;
    if (const auto value = PruneWhole(position, node, afterPass))
        return *value;
    if (entry.turn.IsNone() && depth >= 4 && !plain_)
        --node.depth;
    return SearchTurns(position, node, entry.turn);
}

// Positions so good that not even a pass, or a margin for every turn left, brings them back into the window.
std::optional<int> Searcher::PruneWhole(const SearchPosition& position, const Node& node, bool afterPass) {
    if (plain_ || node.pv || node.danger || std::abs(node.beta) > kSurelyWon)
        return std::nullopt;
    if (node.depth <= 6 && node.standing - 60 * node.depth >= node.beta)
        return node.standing;
    if (node.depth <= 2 && node.standing + 200 * node.depth <= node.alpha) {
        const int value = Quiesce(position, node.alpha, node.beta, node.ply);
        if (value <= node.alpha)
            return value;
    }
    if (afterPass || node.depth < 3 || node.standing < node.beta)
        return std::nullopt;
    SearchPosition next = position;
    next.Pass();
    Enter(next, SearchTurn(0, 1, true, true));
    const int reduced = node.depth - 3 - node.depth / 4 - std::min((node.standing - node.beta) / 200, 2);
    const int value = -Search(next, reduced, -node.beta, 1 - node.beta, node.ply + 1, true);
    Leave();
    if (stopped_ || value < node.beta)
        return std::nullopt;
    return std::min(value, kSurelyWon);
}

int Searcher::ReductionOf(const Node& node, const SearchPosition& position, SearchTurn turn, int index,
                          bool goodCapture) const {
    if (plain_ || node.depth < 2 || index < 2 || goodCapture)
        return 0;
    int reduction = LateMoveReduction(node.depth, index);
    if (node.pv)
        --reduction;
    if (node.danger)
        --reduction;
    if (turn.HasReturn())
        ++reduction;
    if (!turn.IsCapture()) {
        if (history_.IsKiller(node.ply, turn))
            --reduction;
        reduction -= history_.Of(position.Turn(), KindMoved(position.Rules(), turn), turn) / 5000;
    }
    return std::clamp(reduction, 0, node.depth - 1);
}

// Quiet turns near the end of the search seldom lift a position that is below the window, and late ones
// hardly ever change anything.
bool Searcher::CanSkip(const Node& node, SearchTurn turn, int index, int reduction) const {
    if (plain_ || node.pv || node.danger || turn.IsCapture() || index == 0)
        return false;
    if (node.depth <= 3 && index > 6 + 3 * node.depth * node.depth)
        return true;
    const int left = node.depth - reduction;
    return left <= 4 && node.standing + 20 + 40 * left <= node.alpha;
}

int Searcher::Try(const SearchPosition& position, const Node& node, SearchTurn turn, int index, int reduction,
                  int alpha) {
    SearchPosition next = position;
    next.Play(turn);
    table_.Prefetch(next.Key());
    Enter(next, turn);
    int value = 0;
    const int depth = node.depth - 1;
    if (index == 0)
        value = -Search(next, depth, -node.beta, -alpha, node.ply + 1);
    else {
        value = -Search(next, depth - reduction, -alpha - 1, -alpha, node.ply + 1);
        if (value > alpha && reduction > 0)
            value = -Search(next, depth, -alpha - 1, -alpha, node.ply + 1);
        if (value > alpha && value < node.beta)
            value = -Search(next, depth, -node.beta, -alpha, node.ply + 1);
    }
    Leave();
    return value;
}

int Searcher::SearchTurns(const SearchPosition& position, const Node& node, SearchTurn first) {
    TurnPicker picker(position, first, history_, node.ply, scratch_, TurnPicker::Scope::All);
    TriedTurns before;
    int alpha = node.alpha;
    int best = -kInfinite;
    SearchTurn bestTurn;
    int index = 0;
    for (SearchTurn turn = picker.Next(); !turn.IsNone(); turn = picker.Next(), ++index) {
        const int reduction = ReductionOf(node, position, turn, index, picker.LastWasGoodCapture());
        if (best > -kSurelyWon && CanSkip(node, turn, index, reduction))
            continue;
        const int value = Try(position, node, turn, index, reduction, alpha);
        if (stopped_)
            return best > node.alpha ? best : node.alpha;
        if (value > best) {
            best = value;
            if (value > alpha) {
                bestTurn = turn;
                if (node.pv)
                    KeepLine(node.ply, turn);
                alpha = value;
            }
        }
        if (alpha >= node.beta) {
            LearnFromCut(position, node, turn, before);
            break;
        }
        if (!turn.IsCapture() || turn.HasReturn())
            before.Add(turn);
    }
    if (best == -kInfinite)
        return 0; // no turn at all: the game stays unfinished
    const Bound bound = best >= node.beta ? Bound::Lower : best > node.alpha ? Bound::Exact : Bound::Upper;
    table_.Store(position.Key(), {bestTurn, ToTable(best, node.ply), node.depth, bound});
    return best;
}

void Searcher::LearnFromCut(const SearchPosition& position, const Node& node, SearchTurn turn,
                            const TriedTurns& before) {
    const int bonus = std::min(node.depth * node.depth * 16 + 32 * node.depth, 1200);
    const auto reward = [&](SearchTurn t, int by) {
        history_.Reward(position.Turn(), KindMoved(position.Rules(), t), t, by);
    };
    if (!turn.IsCapture())
        history_.AddKiller(node.ply, turn);
    if (!turn.IsCapture() || turn.HasReturn())
        reward(turn, bonus);
    for (std::size_t i = 0; i < before.count; ++i)
        reward(before.turns[i], -bonus);
}

// Captures alone, until the position is quiet: an evaluation in the middle of an exchange says nothing.
int Searcher::Quiesce(const SearchPosition& position, int alpha, int beta, int ply) {
    CheckLimits();
    if (stopped_)
        return alpha;
    if (position.Rules().IsOver())
        return ValueAtEnd(position, ply);
    const TableEntry entry = table_.Find(position.Key());
    const int known = FromTable(entry.value, ply);
    if (Decides(entry.bound, known, alpha, beta))
        return known;
    const int standing = EvaluateHere(position);
    int best = standing;
    if (best >= beta || ply >= kDeepestPly)
        return best;
    const int floor = alpha;
    alpha = std::max(alpha, best);
    TurnPicker picker(position, entry.turn, history_, ply, scratch_, TurnPicker::Scope::Captures);
    SearchTurn bestTurn;
    for (SearchTurn turn = picker.Next(); !turn.IsNone(); turn = picker.Next()) {
        if (turn != entry.turn && standing + picker.LastGain() + 150 <= alpha)
            break;
        SearchPosition next = position;
        next.Play(turn);
        const int value = -Quiesce(next, -beta, -alpha, ply + 1);
        if (stopped_)
            return best;
        if (value <= best)
            continue;
        best = value;
        bestTurn = turn;
        alpha = std::max(alpha, value);
        if (alpha >= beta)
            break;
    }
    const Bound bound = best >= beta ? Bound::Lower : best > floor ? Bound::Exact : Bound::Upper;
    table_.Store(position.Key(), {bestTurn, ToTable(best, ply), 0, bound});
    return best;
}

} // namespace tarveth::computer
