#include "computer/levels.h"

#include "computer/positionline.h"
#include "computer/zobrist.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tarveth::computer {

namespace {

constexpr std::array<LevelTraits, kStrongestLevel> kTraits{{
    {.likeAPerson = true,
     .ahead = 0,
     .missedWins = 50,
     .missedFar = 60,
     .missedReplies = 95,
     .seesLosses = false,
     .tolerance = 220},
    {.likeAPerson = true,
     .ahead = 0,
     .missedFar = 20,
     .missedReplies = 33,
     .seesLosses = false,
     .tolerance = 28},
    {.likeAPerson = true, .ahead = 2, .missedFar = 10, .missedReplies = 13, .tolerance = 16},
    {.likeAPerson = true, .ahead = 2, .missedFar = 1, .missedReplies = 0, .tolerance = 4},
    {.nodes = 20'000, .leastDepth = 5},
    {},
    {},
}};

// A person who looks at every turn spends no more than so many nodes on all of them together.
constexpr std::uint64_t kMostNodes = 150'000;
constexpr int kFar = 3; // squares, as a king steps

struct Candidate {
    SearchTurn turn;
    int value = 0;
};

class Person {
public:
    Person(const SearchPosition& position, const LevelTraits& traits, std::uint64_t seed, Searcher& searcher,
           SearchLimits limits, const std::stop_token& stop)
        : position_(position),
          traits_(traits),
          chance_(seed ^ position.Key()),
          searcher_(searcher),
          limits_(limits),
          stop_(stop) {
        position.Rules().ForEachBar([this](int from, int) { lastSquare_ = from; });
    }

    SearchResult Choose() {
        std::vector<SearchTurn> turns = ListTurns(position_.Rules());
        for (std::size_t i = turns.size(); i > 1; --i)
            std::swap(turns[i - 1], turns[NextRandom(chance_) % i]);
        std::vector<Candidate> seen;
        for (const SearchTurn turn : turns) {
            const bool overlooked = Overlooks(turn);
            const int value = ValueOf(turn);
            if (!overlooked || (traits_.seesLosses && value >= kSurelyWon))
                seen.push_back({turn, value});
        }
        if (seen.empty() && !turns.empty())
            seen.push_back({turns.front(), 0});
        SearchResult result;
        result.nodes = nodes_;
        result.depth = traits_.ahead + 1;
        if (!seen.empty())
            TakeOne(seen, result);
        return result;
    }

private:
    bool Happens(int percent) { return static_cast<int>(NextRandom(chance_) % 100) < percent; }

    bool WinsAtOnce(const SearchPosition& position, SearchTurn turn) const {
        const Side other = Opponent(position.Turn());
        return turn.IsCapture() && (position.Rules().Standing(other) & SetOf(turn.To())) != 0 &&
               position.Rules().OutcomeOfCapture(other, position.Rules().KindOn(other, turn.To())).endsGame;
    }

    bool Overlooks(SearchTurn turn) {
        if (WinsAtOnce(position_, turn))
            return Happens(traits_.missedWins);
        const bool far = lastSquare_ != kNoSquare &&
                         (kWithin[kFar][static_cast<std::size_t>(lastSquare_)] & SetOf(turn.To())) == 0;
        return turn.IsCapture() && far && Happens(traits_.missedFar);
    }

    int ValueOf(SearchTurn turn) {
        SearchPosition next = position_;
        next.Play(turn);
        if (next.Rules().IsOver())
            return next.Rules().HasLost(next.Turn()) ? kWin : -kWin;
        if (traits_.seesLosses && LosesAtOnce(next))
            return 2 - kWin;
        const bool missed = Happens(traits_.missedReplies);
        const auto found = missed && !traits_.seesLosses ? std::nullopt : SearchFrom(next);
        // A level that sees losses also sees the wins that it can force.
        return found && (!missed || *found >= kSurelyWon) ? *found : -Evaluate(next);
    }

    // What the turn that led here is worth; nothing when there is no time or patience left.
    std::optional<int> SearchFrom(const SearchPosition& next) {
        const std::uint64_t most = limits_.nodes == 0 ? kMostNodes : std::min(limits_.nodes, kMostNodes);
        if (nodes_ >= most)
            return std::nullopt;
        SearchLimits limits = limits_;
        limits.nodes = most - nodes_;
        const auto value = searcher_.ValueOf(next, traits_.ahead, limits, stop_);
        nodes_ += searcher_.Nodes();
        return value ? std::optional(-*value) : std::nullopt;
    }

    bool LosesAtOnce(const SearchPosition& next) const {
        bool loses = false;
        next.Rules().ForEachMover([&](const Mover& mover) {
            const SquareSet theirs = next.Rules().Standing(Opponent(next.Turn()));
            for (SquareSet taken = mover.destinations & theirs; taken != 0 && !loses;)
                loses = WinsAtOnce(next, SearchTurn(mover.from, TakeFirst(taken), mover.own, true));
        });
        return loses;
    }

    // Every `tolerance` below the best halve the chance; all in whole numbers, the same
    // everywhere.
    void TakeOne(const std::vector<Candidate>& seen, SearchResult& result) {
        constexpr std::uint64_t kWhole = 1 << 16;
        const int best = std::max_element(seen.begin(), seen.end(), [](const auto& a, const auto& b) {
                             return a.value < b.value;
                         })->value;
        const auto weight = [&](const Candidate& candidate) -> std::uint64_t {
            const int below = best - candidate.value;
            return best >= kSurelyWon && below > 0 ? 0 : kWhole >> std::min(below / traits_.tolerance, 63);
        };
        std::uint64_t sum = 0;
        for (const Candidate& candidate : seen)
            sum += weight(candidate);
        std::uint64_t ticket = NextRandom(chance_) % sum;
        for (const Candidate& candidate : seen) {
            if (ticket < weight(candidate)) {
                result.turn = candidate.turn;
                result.value = candidate.value;
                result.line = {candidate.turn};
                return;
            }
            ticket -= weight(candidate);
        }
    }

    const SearchPosition& position_;
    const LevelTraits& traits_;
    std::uint64_t chance_;
    Searcher& searcher_;
    SearchLimits limits_;
    const std::stop_token& stop_;
    int lastSquare_ = kNoSquare;
    std::uint64_t nodes_ = 0;
};

} // namespace

const LevelTraits& TraitsOf(int level) {
    return kTraits[static_cast<std::size_t>(level - kWeakestLevel)];
}

SearchResult ChooseLikeAPerson(const SearchPosition& position, const LevelTraits& traits, std::uint64_t seed,
                               Searcher& searcher, const SearchLimits& limits, const std::stop_token& stop) {
    return Person(position, traits, seed, searcher, limits, stop).Choose();
}

} // namespace tarveth::computer
