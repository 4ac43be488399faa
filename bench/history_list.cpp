// What one more line costs the move list of the main window, in a list of 10,000 lines against an empty one,
// in turn: to add and select it, and until it is painted as well. Prints the times and their ratios; 1 is
// wanted. Painting a list that scrolls takes a little more than painting one that does not yet.

#include "display/wx/HistoryList.h"
#include "tests/window/Desktop.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include <wx/app.h>
#include <wx/frame.h>

namespace {

constexpr std::size_t kLongHistory = 10'000;
constexpr int kRounds = 9;
constexpr int kLines = 100; // added in a round

std::vector<std::string> History(std::size_t lines) {
    return std::vector<std::string>(lines, "R:RO 4C-4D cBP");
}

// Microseconds for a line.
struct Cost {
    double added = 0;
    double painted = 0;
};

Cost AddingTo(tarveth::HistoryList* list, std::size_t length) {
    using Clock = std::chrono::steady_clock;
    std::vector<std::string> lines = History(length);
    lines.reserve(length + kLines);
    list->ShowLines({});
    list->ShowLines(lines);
    wxYield();
    std::chrono::duration<double, std::micro> added{};
    const auto start = Clock::now();
    for (int i = 0; i < kLines; ++i) {
        lines.emplace_back("B:BP 4E-4D");
        const auto before = Clock::now();
        list->ShowLines(lines);
        added += Clock::now() - before;
        wxYield();
    }
    const std::chrono::duration<double, std::micro> painted = Clock::now() - start;
    return {added.count() / kLines, painted.count() / kLines};
}

// Prints the middle ones of these costs of a line.
void Compare(const char* what, double Cost::*cost, std::vector<Cost> toLong, std::vector<Cost> toEmpty) {
    const auto middle = [cost](std::vector<Cost>& costs) {
        std::sort(costs.begin(), costs.end(),
                  [cost](const Cost& a, const Cost& b) { return a.*cost < b.*cost; });
        return costs[costs.size() / 2].*cost;
    };
    const double longList = middle(toLong);
    const double emptyList = middle(toEmpty);
    std::printf("%s: %.1f us to 10,000 lines, %.1f us to an empty list, ratio %.2f\n", what, longList,
                emptyList, longList / emptyList);
}

} // namespace

class BenchApp : public wxApp {
public:
    bool OnInit() override {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "History", wxDefaultPosition, {250, 400});
        frame->Show();
        CallAfter([frame] {
            auto* list = new tarveth::HistoryList(frame);
            list->SetSize(0, 0, 250, 400);
            Measure(list);
            frame->Close();
        });
        return true;
    }

private:
    static void Measure(tarveth::HistoryList* list) {
        std::vector<Cost> toLong;
        std::vector<Cost> toEmpty;
        for (int round = 0; round < kRounds; ++round) {
            toLong.push_back(AddingTo(list, kLongHistory));
            toEmpty.push_back(AddingTo(list, 0));
        }
        Compare("added", &Cost::added, toLong, toEmpty);
        Compare("painted", &Cost::painted, toLong, toEmpty);
    }
};

wxIMPLEMENT_APP_NO_MAIN(BenchApp);

int main(int argc, char** argv) {
    const tarveth::harness::Desktop desktop({.accessibility = false});
    return wxEntry(argc, argv);
}
