// What one more line costs the move list of the main window, in processor time: to add and select it, and
// until the window is painted with it. As in a game each line comes by itself, with a painted frame between
// it and the next. The same list with 10,000 lines, with just enough to be full, and empty, in turn; prints
// the times and what the first is of the others. A full list scrolls and has all its rows painted, an empty
// one but the new row.

#include "display/wx/HistoryList.h"
#include "tests/window/Desktop.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <map>
#include <string>
#include <vector>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <gtk/gtk.h>

namespace {

constexpr std::size_t kLongHistory = 10'000;
constexpr std::size_t kFullList = 40; // more than are in view
constexpr std::size_t kEmptyList = 0;
constexpr int kRounds = 30;
constexpr int kLines = 20; // added in a round

// Gives the processor time used so far, in microseconds.
double Used() {
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

// Counts how often a window is painted.
class Frames {
public:
    // Waits until the window is on the screen.
    explicit Frames(const wxWindow* window) {
        while (gtk_widget_get_realized(window->GetHandle()) == FALSE)
            wxYield();
        g_signal_connect_swapped(gtk_widget_get_frame_clock(window->GetHandle()), "after-paint",
                                 G_CALLBACK(+[](Frames* self) { ++self->count_; }), this);
    }

    void WaitForNext() const {
        for (const int before = count_; count_ == before;)
            gtk_main_iteration();
    }

    // Waits until nothing has been painted for a while.
    void WaitForRest() const {
        constexpr auto kCalm = std::chrono::milliseconds(50);
        using Clock = std::chrono::steady_clock;
        auto last = Clock::now();
        for (int before = count_; Clock::now() < last + kCalm; g_usleep(1000)) {
            wxYield();
            if (count_ != before) {
                before = count_;
                last = Clock::now();
            }
        }
    }

private:
    int count_ = 0;
};

struct Costs {
    std::vector<double> added;
    std::vector<double> painted;
};

void AddLinesTo(tarveth::HistoryList* list, std::size_t length, const Frames& frames, Costs& costs) {
    std::vector<std::string> lines(length, "R:RO 4C-4D cBP");
    list->ShowLines({});
    list->ShowLines(lines);
    frames.WaitForRest();
    for (int i = 0; i < kLines; ++i) {
        lines.emplace_back("B:BP 4E-4D");
        const double before = Used();
        list->ShowLines(lines);
        costs.added.push_back(Used() - before);
        frames.WaitForNext();
        costs.painted.push_back(Used() - before);
    }
}

double Middle(std::vector<double>& costs) {
    std::sort(costs.begin(), costs.end());
    return costs[costs.size() / 2];
}

void Compare(const char* what, std::vector<double> Costs::*cost, std::map<std::size_t, Costs>& costs) {
    const double toLong = Middle(costs[kLongHistory].*cost);
    std::printf("%s: %.1f us to %zu lines\n", what, toLong, kLongHistory);
    for (const std::size_t length : {kFullList, kEmptyList}) {
        const double toShort = Middle(costs[length].*cost);
        std::printf("%s: %.1f us to %zu lines, ratio %.2f\n", what, toShort, length, toLong / toShort);
    }
}

void Measure(tarveth::HistoryList* list) {
    const Frames frames(list);
    std::map<std::size_t, Costs> costs;
    for (int round = 0; round < kRounds; ++round) {
        for (const std::size_t length : {kLongHistory, kFullList, kEmptyList})
            AddLinesTo(list, length, frames, costs[length]);
    }
    Compare("added", &Costs::added, costs);
    Compare("painted", &Costs::painted, costs);
}

} // namespace

class BenchApp : public wxApp {
public:
    bool OnInit() override {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "History", wxDefaultPosition, {250, 400});
        auto* panel = new wxPanel(frame);
        frame->Show();
        CallAfter([frame, panel] {
            auto* list = new tarveth::HistoryList(panel);
            list->SetSize(frame->GetClientSize());
            Measure(list);
            frame->Close();
        });
        return true;
    }
};

wxIMPLEMENT_APP_NO_MAIN(BenchApp);

int main(int argc, char** argv) {
    const tarveth::harness::Desktop desktop({.accessibility = false});
    return wxEntry(argc, argv);
}
