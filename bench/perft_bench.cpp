// Measures how fast complete turns are counted (perft), on one core.
#include "engine/rules/Game.h"
#include "engine/rules/perft.h"

#include <benchmark/benchmark.h>

namespace {

// 343,243,080 turns
constexpr int kDepth = 5;

void CountTurnsOfImperialBoard(benchmark::State& state) {
    tarveth::Game game;
    tarveth::CreatePieces(game);
    tarveth::PlacePieces(game, tarveth::kImperialBoard);
    game.Turn = tarveth::Blue;
    std::uint64_t turns = 0;
    while (state.KeepRunning())
        turns += tarveth::CountTurns(game, kDepth).turns;
    state.counters["turns/s"] = benchmark::Counter(static_cast<double>(turns), benchmark::Counter::kIsRate);
}

BENCHMARK(CountTurnsOfImperialBoard)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
