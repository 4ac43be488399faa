// Opponents that know little, to measure the lower levels by.
#include "computer/positionline.h"
#include "tools/match/MatchPlayer.h"

#include <algorithm>
#include <array>
#include <random>

namespace tarveth::match {

namespace {

using computer::GameRecord;
using computer::SearchPosition;
using computer::SearchTurn;

constexpr int kWon = 100'000;

// The standard's engine gives the same numbers everywhere, its distributions do not.
class Chance {
public:
    void Seed(std::uint64_t seed) { engine_.seed(seed); }
    void Shuffle(std::vector<SearchTurn>& turns) {
        for (std::size_t i = turns.size(); i > 1; --i)
            std::swap(turns[i - 1], turns[engine_() % i]);
    }

private:
    std::mt19937_64 engine_;
};

class RandomPlayer : public MatchPlayer {
public:
    void BeginGame(const GameRecord&, std::uint64_t seed) override { chance_.Seed(seed); }
    void Played(SearchTurn) override {}
    SearchTurn Choose(const GameRecord& game) override {
        auto turns = computer::ListTurns(game.Rules());
        chance_.Shuffle(turns);
        return turns.empty() ? SearchTurn() : turns.front();
    }

private:
    Chance chance_;
};

int Material(const CompactGame& position, Side side) {
    constexpr std::array<int, 3> worth{5, 3, 1};
    int sum = 0;
    for (const PieceKind kind : {Master, Officer, Pawn})
        sum += worth[static_cast<std::size_t>(kind - Master)] * CountOf(position.Standing(side, kind));
    return sum;
}

class MaterialPlayer : public MatchPlayer {
public:
    explicit MaterialPlayer(int turns) : turns_(turns) {}

    void BeginGame(const GameRecord&, std::uint64_t seed) override { chance_.Seed(seed); }
    void Played(SearchTurn) override {}
    SearchTurn Choose(const GameRecord& game) override {
        auto turns = computer::ListTurns(game.Rules());
        chance_.Shuffle(turns);
        SearchTurn best;
        int bestValue = -2 * kWon;
        for (const SearchTurn turn : turns) {
            SearchPosition next = game.Position();
            next.Play(turn);
            const int value = -Value(next.Rules(), turns_ - 1, -2 * kWon, -bestValue);
            if (value > bestValue) {
                bestValue = value;
                best = turn;
            }
        }
        effort.depths += static_cast<std::uint64_t>(turns_);
        return best;
    }

private:
    static int Value(const CompactGame& position, int turns, int alpha, int beta) {
        const Side side = position.Turn();
        if (position.IsOver())
            return position.HasLost(side) ? -kWon - turns : kWon + turns;
        if (turns == 0)
            return Material(position, side) - Material(position, Opponent(side));
        int best = -2 * kWon;
        for (const bool captures : {true, false}) { // those first
            position.ForEachTurn([&](const CompactTurn& turn) {
                if ((turn.captured != 0) != captures || best >= beta)
                    return;
                CompactGame next = position;
                next.Play(turn);
                best = std::max(best, -Value(next, turns - 1, -beta, -std::max(alpha, best)));
            });
        }
        return best == -2 * kWon ? 0 : best;
    }

    int turns_;
    Chance chance_;
};

} // namespace

std::unique_ptr<MatchPlayer> MakeRandomPlayer() {
    return std::make_unique<RandomPlayer>();
}

std::unique_ptr<MatchPlayer> MakeMaterialPlayer(int turns) {
    return std::make_unique<MaterialPlayer>(turns);
}

} // namespace tarveth::match
