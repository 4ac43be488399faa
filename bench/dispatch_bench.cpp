// Measures how fast data from a server is handled: a batch of the opponent's moves, from the bytes to the
// queues of squares, compared with only finding all markers in the same bytes. The aim is 100 MB a second,
// for a batch of 20,000 moves as for one of 1,000.
#include "net/wire/framing.h"
#include "tests/net/TestClient.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace {

using tarveth::test::TestClient;

std::string Moves(std::int64_t count) {
    std::string bytes;
    for (std::int64_t i = 0; i < count; ++i)
        bytes += "\251play(Ann,M(" + std::to_string(1 + i % 8) + ", " + std::to_string(1 + i / 8 % 8) + "))";
    return bytes;
}

std::size_t CountMarkers(const std::string& bytes) {
    std::size_t count = 0;
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (const void* found = std::memchr(at, tarveth::kMarker, static_cast<std::size_t>(end - at))) {
        ++count;
        at = static_cast<const char*>(found) + 1;
    }
    return count;
}

template <class Work>
double SecondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Gives the median of the rounds. Each round measures both, so that other work of the computer affects both
// alike.
template <class Work, class Yardstick>
double Ratio(Work work, Yardstick yardstick) {
    std::vector<double> ratios;
    for (int i = 0; i < 201; ++i) {
        const double ours = SecondsOf(work);
        ratios.push_back(ours / SecondsOf(yardstick));
    }
    const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
    std::nth_element(ratios.begin(), middle, ratios.end());
    return *middle;
}

void DispatchMoves(benchmark::State& state) {
    const std::string bytes = Moves(state.range(0));
    TestClient c;
    c.StartGame();
    const auto dispatch = [&] {
        c.net.ClearQueues();
        c.client.DispatchMessages(bytes);
    };
    while (state.KeepRunning())
        dispatch();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
    state.counters["times_scan"] = Ratio(dispatch, [&] { benchmark::DoNotOptimize(CountMarkers(bytes)); });
}

BENCHMARK(DispatchMoves)->Arg(1'000)->Arg(10'000)->Arg(20'000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
