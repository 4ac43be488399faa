// Measures what keeping the game aside costs the window's thread after a turn, at 2,000 history lines: the
// mean and the worst of a thousand turns. The aim is at most 1 ms of processor time.
#include "tests/storage/KeeperTable.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

constexpr std::size_t kLines = 2000;
constexpr int kTurns = 1000;

// Gives the processor time that this thread has used, in milliseconds.
double UsedMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

} // namespace

int main() {
    const tarveth::TempFolder folder;
    tarveth::test::KeeperTable table(folder.Name());
    table.Move("4E", "4D");
    while (table.game.lstHistory.size() < kLines)
        table.game.lstHistory.emplace_back(table.game.lstHistory.size() % 3 == 0 ? "R:RO 4C-4D cBP"
                                                                                 : "B:BP 4E-4D");
    std::vector<double> times;
    for (int i = 0; i < kTurns; ++i) {
        const double before = UsedMilliseconds();
        table.keeper.TurnEnded();
        times.push_back(UsedMilliseconds() - before);
    }
    double sum = 0;
    for (const double time : times)
        sum += time;
    std::printf("A turn kept aside at %zu lines: %.3f ms of processor time in the mean, %.3f ms at worst\n",
                kLines, sum / kTurns, *std::max_element(times.begin(), times.end()));
}
