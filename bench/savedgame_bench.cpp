// Measures saved games: writing and reading 2,000 history lines, compared with as many bytes in one piece,
// and adding a line to a long history, compared with adding it to an empty one. The aims are ratios of at
// most 3, 3 and 1. It also measures how long it takes to find the positions of such a game from its history,
// beside what reading the file takes.
#include "engine/rules/moves.h"
#include "engine/rules/turns.h"
#include "platform/atomic_file.h"
#include "storage/modFileIO.h"
#include "storage/notation.h"
#include "storage/replay.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace {

using tarveth::Game;

constexpr std::size_t kHistoryLines = 2000;
constexpr std::size_t kLongHistory = 10'000;
constexpr std::uintmax_t kLimit = 1 << 20;

Game LongGame(std::size_t lines) {
    Game game;
    tarveth::CreatePieces(game);
    tarveth::PlacePieces(game, tarveth::kImperialBoard);
    game.Turn = tarveth::Blue;
    for (std::size_t i = 0; i < lines; ++i)
        game.lstHistory.emplace_back(i % 3 == 0 ? "R:RO 4C-4D cBP" : "B:BP 4E-4D");
    return game;
}

// A game that was played: random moves that take nothing.
Game PlayedGame(std::size_t lines) {
    Game game = LongGame(0);
    game.GameState = tarveth::kPickPiece;
    std::mt19937 random(1); // NOLINT: the same game each time
    while (game.lstHistory.size() < lines) {
        std::vector<tarveth::CompleteTurn> turns = tarveth::ListTurns(game);
        std::erase_if(turns, [](const tarveth::CompleteTurn& turn) { return turn.captured != 0; });
        const tarveth::CompleteTurn& turn = turns.at(random() % turns.size());
        tarveth::BeginMove(game, turn.piece);
        tarveth::FinishMove(game, turn.piece, turn.to, 0);
        tarveth::HistoryAddMove(game, turn.piece);
        game.Turn = tarveth::Opponent(game.Turn);
    }
    return game;
}

class TemporaryFile {
public:
    TemporaryFile() : path_(std::filesystem::temp_directory_path() / "tarveth-savedgame-bench.tsg") {}
    ~TemporaryFile() { std::filesystem::remove(path_); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

template <class Work>
double SecondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> times) {
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2),
                     times.end());
    return times[times.size() / 2];
}

// Gives the median times of both, measured in turns, so that other work of the computer affects both alike.
template <class Work, class Yardstick>
double Ratio(int rounds, Work work, Yardstick yardstick) {
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int i = 0; i < rounds; ++i) {
        ours.push_back(SecondsOf(work));
        theirs.push_back(SecondsOf(yardstick));
    }
    return Median(ours) / Median(theirs);
}

void WriteLongGame(benchmark::State& state) {
    const TemporaryFile file;
    const Game game = LongGame(kHistoryLines);
    const std::string bytes = tarveth::GameText(game, "title");
    const auto write = [&] { tarveth::WriteGame(game, "title", file.Path()); };
    while (state.KeepRunning())
        write();
    state.counters["times_one_piece"] =
        Ratio(101, write, [&] { tarveth::platform::WriteFileAtomically(file.Path(), bytes); });
}

void ReadLongGame(benchmark::State& state) {
    const TemporaryFile file;
    tarveth::WriteGame(LongGame(kHistoryLines), "title", file.Path());
    const auto read = [&] { benchmark::DoNotOptimize(tarveth::ReadGame(file.Path())); };
    while (state.KeepRunning())
        read();
    state.counters["times_one_piece"] = Ratio(
        1001, read, [&] { benchmark::DoNotOptimize(tarveth::platform::ReadWholeFile(file.Path(), kLimit)); });
}

void ReadAndReplayLongGame(benchmark::State& state) {
    const TemporaryFile file;
    const Game game = PlayedGame(kHistoryLines);
    tarveth::WriteGame(game, "title", file.Path());
    const auto replay = [&] {
        const tarveth::Replay found = tarveth::ReplayHistory(tarveth::ReadGame(file.Path()));
        if (!found.positions.Knows(0))
            state.SkipWithError("the game is not replayed");
    };
    while (state.KeepRunning())
        replay();
    state.counters["times_reading"] =
        Ratio(101, replay, [&] { benchmark::DoNotOptimize(tarveth::ReadGame(file.Path())); });
}

// Adds lines to a history of this length. The growth of the vector is part of the time.
double AddingTo(std::size_t length) {
    constexpr int kLines = 1000;
    Game game = LongGame(length);
    return SecondsOf([&] {
        for (int i = 0; i < kLines; ++i)
            tarveth::HistoryAddMove(game, 1);
    });
}

void AddHistoryLine(benchmark::State& state) {
    Game game = LongGame(kLongHistory);
    while (state.KeepRunning()) {
        tarveth::HistoryAddMove(game, 1);
        if (game.lstHistory.size() >= 2 * kLongHistory)
            game.lstHistory.resize(kLongHistory);
    }
    std::vector<double> longTimes;
    std::vector<double> emptyTimes;
    for (int i = 0; i < 101; ++i) {
        longTimes.push_back(AddingTo(kLongHistory));
        emptyTimes.push_back(AddingTo(0));
    }
    state.counters["times_empty"] = Median(longTimes) / Median(emptyTimes);
}

BENCHMARK(WriteLongGame)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadLongGame)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadAndReplayLongGame)->Unit(benchmark::kMicrosecond);
BENCHMARK(AddHistoryLine);

} // namespace

BENCHMARK_MAIN();
