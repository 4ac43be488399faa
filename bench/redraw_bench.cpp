// Measures drawing: the whole board, compared with a plain copy of as many pixels, and a click from the mouse
// button to the presented board.
#include "tests/display/DisplayGame.h"

#include <array>
#include <cstring>
#include <ctime>

#include <benchmark/benchmark.h>

namespace {

using tarveth::PixelBuffer;
using tarveth::Square;
using tarveth::test::DisplayGame;

constexpr int kPictures = 64;

// Gives the processor time of one run of `work` in seconds, the mean of many runs.
template <class Work>
double TimeOf(Work work) {
    constexpr int kRuns = 200;
    const std::clock_t start = std::clock();
    for (int i = 0; i < kRuns; ++i)
        work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / kRuns;
}

class Copy {
public:
    explicit Copy(const PixelBuffer& from) : from_(from), to_(from.Width(), from.Height()) {}
    void Run() {
        std::memcpy(to_.Row(0), from_.Row(0), from_.ByteCount());
        benchmark::DoNotOptimize(to_.Row(0));
        benchmark::ClobberMemory();
    }

private:
    const PixelBuffer& from_;
    PixelBuffer to_;
};

// Redraws 26 pieces of 64 pixels, presented at their own size. The aim is at most 6 times the time of a copy.
void RedrawBoard(benchmark::State& state) {
    DisplayGame g(kPictures);
    Copy board(g.board.picBoard.Pixels);
    Copy jail(g.board.picJail.Pixels);
    while (state.KeepRunning())
        g.board.RedrawBoard();
    // Both are measured once more, in turns, so that other work of the computer affects both alike.
    double redrawing = 0;
    double copying = 0;
    for (int round = 0; round < 5; ++round) {
        redrawing += TimeOf([&] { g.board.RedrawBoard(); });
        copying += TimeOf([&] {
            board.Run();
            jail.Run();
        });
    }
    state.counters["times_a_copy"] = redrawing / copying;
}

// Measures RedrawBoard without presenting, since the visible board has no size.
void PaintBoard(benchmark::State& state) {
    DisplayGame g(kPictures);
    g.board.SetDisplaySize(0, 0);
    while (state.KeepRunning())
        g.board.RedrawBoard();
}

void PresentBoard(benchmark::State& state) {
    DisplayGame g(static_cast<int>(state.range(1)));
    const int edge = static_cast<int>(state.range(0));
    g.board.SetDisplaySize(edge, edge * 3 / 8);
    while (state.KeepRunning())
        g.board.PresentBoard();
}

void CopyBoard(benchmark::State& state) {
    const DisplayGame g(kPictures);
    Copy board(g.board.picBoard.Pixels);
    Copy jail(g.board.picJail.Pixels);
    while (state.KeepRunning()) {
        board.Run();
        jail.Run();
    }
}

// One iteration is two clicks, one that picks a piece and one that places it, each with its passes, on a
// visible board of 768 pixels; 4 ms a click are wanted. Two Pawns go round in triangles, so that the Rule of
// Reflection never stops them.
void PickAndPlace(benchmark::State& state) {
    DisplayGame g(kPictures);
    g.board.SetDisplaySize(768, 288);
    constexpr std::array<Square, 3> kBlue{{{4, 5}, {3, 5}, {4, 4}}};
    constexpr std::array<Square, 3> kRed{{{5, 4}, {6, 4}, {5, 5}}};
    std::size_t turn = 0;
    while (state.KeepRunning()) {
        const auto& triangle = turn % 2 == 0 ? kBlue : kRed;
        g.Click(triangle[turn / 2 % 3]);
        g.Click(triangle[(turn / 2 + 1) % 3]);
        ++turn;
    }
    if (g.game.lstHistory.size() != turn)
        state.SkipWithError("a click was refused");
}

// Measures an animated move: one redraw, then three ticks, each of which presents the board.
void MoveAcrossOneSquare(benchmark::State& state) {
    DisplayGame g(kPictures);
    g.board.SetDisplaySize(768, 288);
    Square to{3, 5};
    while (state.KeepRunning()) {
        g.board.AnimateMove(12, to);
        to = to == Square{3, 5} ? Square{4, 5} : Square{3, 5};
    }
}

} // namespace

BENCHMARK(RedrawBoard)->Unit(benchmark::kMicrosecond);
BENCHMARK(PaintBoard)->Unit(benchmark::kMicrosecond);
BENCHMARK(CopyBoard)->Unit(benchmark::kMicrosecond);
// Stretches boards of 64 and 128 pixels a square to smaller and larger visible boards.
BENCHMARK(PresentBoard)
    ->Args({512, 64})
    ->Args({768, 64})
    ->Args({1024, 64})
    ->Args({400, 64})
    ->Args({768, 128})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(PickAndPlace)->Unit(benchmark::kMicrosecond);
BENCHMARK(MoveAcrossOneSquare)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
