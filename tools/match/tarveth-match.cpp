// Plays matches between levels of this build, simple opponents and other programs, and prints what came of
// it.
#include "computer/positionline.h"
#include "tools/match/MatchPlayer.h"
#include "tools/match/Tally.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <cstdio>
#include <exception>
#include <iomanip>
#include <iostream>
#include <random>
#include <stdexcept>

namespace tarveth::match {

namespace {

using computer::GameRecord;
using computer::SearchTurn;

struct MatchOptions {
    std::string first, second;
    int games = 100;
    std::string layout = "both";
    Pace pace;
    std::uint64_t seed = 1;
    int openingTurns = 4;
    int mostTurns = 400;
    int quietTurns = 150;
    bool verbose = false;
};

enum class Outcome { Draw, Blue, Red };

class Match {
public:
    explicit Match(const MatchOptions& options)
        : options_(options),
          first_(MakePlayer(options.first, options.pace)),
          second_(MakePlayer(options.second, options.pace)) {}

    // Two games in a row have the same opening, with the colours changed.
    void Play() {
        for (int game = 0; game < options_.games; ++game) {
            const bool firstIsBlue = game % 2 == 0;
            const Outcome outcome = PlayGame(game, firstIsBlue);
            Tally& tally = tallies_[LayoutOf(game) == kImperialBoard ? 0 : 1];
            if (outcome == Outcome::Draw)
                ++tally.draws;
            else if ((outcome == Outcome::Blue) == firstIsBlue)
                ++tally.wins;
            else
                ++tally.losses;
            if (options_.verbose)
                std::cerr << "game " << game + 1 << ": +" << Total().wins << " -" << Total().losses << " ="
                          << Total().draws << " turns " << turnsOfGame_ << '\n';
        }
    }

    void Print() const {
        const Tally total = Total();
        std::cout << options_.first << " against " << options_.second << ", seed " << options_.seed << '\n';
        PrintTally("both layouts", total);
        PrintTally("Imperial Board", tallies_[0]);
        PrintTally("Draume Crown", tallies_[1]);
        std::cout << "turns a game " << static_cast<double>(turns_) / std::max(total.Games(), 1) << '\n';
        PrintEffort(options_.first, first_->effort);
        PrintEffort(options_.second, second_->effort);
    }

private:
    Tally Total() const {
        return {tallies_[0].wins + tallies_[1].wins, tallies_[0].losses + tallies_[1].losses,
                tallies_[0].draws + tallies_[1].draws};
    }

    std::int16_t LayoutOf(int game) const {
        if (options_.layout != "both")
            return options_.layout == "imperial" ? kImperialBoard : kDraumeCrownBoard;
        return game / 2 % 2 == 0 ? kImperialBoard : kDraumeCrownBoard;
    }

    // A start with a few turns played by chance, so that games differ.
    GameRecord Opening(int game) const {
        std::mt19937_64 chance(options_.seed * 1'000'003 + static_cast<std::uint64_t>(game / 2));
        GameRecord record(computer::StartOf(LayoutOf(game)));
        for (int i = 0; i < options_.openingTurns; ++i) {
            const auto turns = computer::ListTurns(record.Rules());
            const SearchTurn turn = turns[chance() % turns.size()];
            if (!turn.IsCapture()) // nobody begins with less
                record.Play(turn);
        }
        return record;
    }

    Outcome PlayGame(int game, bool firstIsBlue) {
        GameRecord record = Opening(game);
        const std::uint64_t seed = options_.seed * 7919 + static_cast<std::uint64_t>(game);
        first_->BeginGame(record, seed);
        second_->BeginGame(record, seed + 1'000'000);
        int quiet = 0;
        for (turnsOfGame_ = 0; turnsOfGame_ < options_.mostTurns && quiet < options_.quietTurns;
             ++turnsOfGame_, ++turns_) {
            const bool blue = record.Rules().Turn() == Blue;
            const SearchTurn turn = Ask(blue == firstIsBlue ? *first_ : *second_, record);
            if (turn.IsNone())
                return Outcome::Draw;
            quiet = turn.IsCapture() ? 0 : quiet + 1;
            first_->Played(turn);
            second_->Played(turn);
            record.Play(turn);
            if (record.Rules().HasLost(Red))
                return Outcome::Blue;
            if (record.Rules().HasLost(Blue))
                return Outcome::Red;
        }
        return Outcome::Draw;
    }

    static SearchTurn Ask(MatchPlayer& player, const GameRecord& record) {
        const auto start = std::chrono::steady_clock::now();
        const SearchTurn turn = player.Choose(record);
        const double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        player.effort.seconds += seconds;
        player.effort.longest = std::max(player.effort.longest, seconds);
        ++player.effort.turns;
        return turn;
    }

    static void PrintTally(const char* what, const Tally& tally) {
        if (tally.Games() == 0)
            return;
        const double score = tally.Score();
        const double error = tally.ScoreError();
        std::cout << std::fixed << std::setprecision(1) << what << ": " << tally.Games() << " games, +"
                  << tally.wins << " -" << tally.losses << " =" << tally.draws << ", score " << 100 * score
                  << " % (+-" << 100 * error << "), Elo " << Tally::EloOf(score) << " ("
                  << Tally::EloOf(score - error) << " to " << Tally::EloOf(score + error) << ")\n";
    }

    static void PrintEffort(const std::string& name, const Effort& effort) {
        const double turns = static_cast<double>(std::max<std::uint64_t>(effort.turns, 1));
        std::cout << name << ": mean time " << 1000 * effort.seconds / turns << " ms, longest "
                  << 1000 * effort.longest << " ms, mean depth " << static_cast<double>(effort.depths) / turns
                  << ", mean nodes " << static_cast<double>(effort.nodes) / turns << '\n';
    }

    MatchOptions options_;
    std::unique_ptr<MatchPlayer> first_, second_;
    std::array<Tally, 2> tallies_; // by layout
    int turnsOfGame_ = 0;
    std::uint64_t turns_ = 0;
};

void AddOptions(CLI::App& app, MatchOptions& options) {
    app.add_option("first", options.first, "level:N[,nodes=N|,ms=N], random, material:N or exec:COMMAND")
        ->required();
    app.add_option("second", options.second, "The other player, likewise")->required();
    app.add_option("--games", options.games, "How many; two in a row share an opening")
        ->capture_default_str();
    app.add_option("--layout", options.layout, "Where the pieces start")
        ->check(CLI::IsMember({"imperial", "draume", "both"}))
        ->capture_default_str();
    app.add_option("--ms", options.pace.milliseconds, "Milliseconds a turn")->capture_default_str();
    app.add_option("--nodes", options.pace.nodes, "Nodes a turn, instead of time");
    app.add_option("--seed", options.seed, "Openings and players follow from it")->capture_default_str();
    app.add_option("--opening", options.openingTurns, "Turns by chance before the players begin")
        ->capture_default_str();
    app.add_option("--most-turns", options.mostTurns, "A longer game is a draw")->capture_default_str();
    app.add_option("--quiet-turns", options.quietTurns, "So many turns without a capture are a draw")
        ->capture_default_str();
    app.add_flag("--verbose", options.verbose, "Tell the score after every game");
}

} // namespace

} // namespace tarveth::match

int main(int count, char** arguments) try {
    CLI::App app("Matches between players of Tarveth", "tarveth-match");
    tarveth::match::MatchOptions options;
    tarveth::match::AddOptions(app, options);
    CLI11_PARSE(app, count, arguments);
    tarveth::match::Match match(options);
    match.Play();
    match.Print();
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "tarveth-match: %s\n", error.what());
    return 1;
}
