// Measures how long a program takes until its window is painted, and how much memory it uses by then. Two
// programs are measured in turns on a display server of their own, so that other work of the computer affects
// both alike.
//
//   startup_bench --runs 15 -- PROGRAM_A [ARG…] [-- PROGRAM_B [ARG…]]
//
// Without PROGRAM_B the empty window is B. A run begins with the start of the process and ends when the
// server has been given most of the picture of a top-level window; the program is then killed.

#include "tests/window/Desktop.h"
#include "tests/window/Screen.h"

#include <X11/Xlib.h>
#include <X11/extensions/Xdamage.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>
#include <optional>
#include <stdexcept>
#include <string_view>

#include <poll.h>

namespace {

using tarveth::harness::Desktop;
using tarveth::harness::kPatience;
using tarveth::harness::Process;
using tarveth::harness::Screen;
using Clock = std::chrono::steady_clock;
using Command = std::vector<std::string>;

struct Request {
    int runs = 15;
    std::array<Command, 2> commands;
};

struct Sample {
    double milliseconds = 0;
    double memoryMiB = 0;
};

// Watches for the first window of a program to be painted. Tips and helper windows are too small to count.
class PaintWatch {
public:
    PaintWatch() {
        XSelectInput(screen_.Connection(), screen_.Root(), SubstructureNotifyMask);
        int firstError = 0;
        if (XDamageQueryExtension(screen_.Connection(), &firstEvent_, &firstError) == 0) {
            throw std::runtime_error("the display server cannot tell of painting");
        }
        XSync(screen_.Connection(), True);
    }

    // True once a window has been painted, false when none has by `deadline`.
    bool Wait(Clock::time_point deadline) {
        painted_.clear();
        while (Clock::now() < deadline) {
            while (XPending(screen_.Connection()) > 0) {
                XEvent event;
                XNextEvent(screen_.Connection(), &event);
                if (IsFullPaint(event)) {
                    return true;
                }
            }
            pollfd waiting{ConnectionNumber(screen_.Connection()), POLLIN, 0};
            constexpr int kMilliseconds = 100;
            poll(&waiting, 1, kMilliseconds);
        }
        return false;
    }

    // Waits until the killed program's windows are gone, so that they are not taken for the next program's.
    void Settle() {
        if (!tarveth::harness::WaitUntil([this] { return WindowCount() == 0; })) {
            throw std::runtime_error("windows of a killed program stay");
        }
        XSync(screen_.Connection(), True);
    }

private:
    static constexpr int kLeastWidth = 320;
    static constexpr int kLeastHeight = 200;

    [[nodiscard]] unsigned WindowCount() const {
        Window root = 0;
        Window parent = 0;
        Window* children = nullptr;
        unsigned count = 0;
        XQueryTree(screen_.Connection(), screen_.Root(), &root, &parent, &children, &count);
        XFree(children);
        return count;
    }

    bool IsFullPaint(const XEvent& event) {
        if (event.type == CreateNotify) {
            // Damage is watched before the window is shown, so that none of its first picture is missed.
            XDamageCreate(screen_.Connection(), event.xcreatewindow.window, XDamageReportRawRectangles);
            XFlush(screen_.Connection());
            return false;
        }
        if (event.type != firstEvent_ + XDamageNotify) {
            return false;
        }
        const auto& damage = reinterpret_cast<const XDamageNotifyEvent&>(event);
        const long window = static_cast<long>(damage.geometry.width) * damage.geometry.height;
        long& painted = painted_[damage.drawable];
        painted += static_cast<long>(damage.area.width) * damage.area.height;
        return damage.geometry.width >= kLeastWidth && damage.geometry.height >= kLeastHeight &&
               painted * 4 >= window * 3;
    }

    Screen screen_;
    int firstEvent_ = 0;
    std::map<Drawable, long> painted_;
};

Sample Measure(PaintWatch& watch, const Command& command, const std::filesystem::path& output) {
    const auto start = Clock::now();
    Process process({.command = command, .output = output});
    if (!watch.Wait(start + kPatience)) {
        throw std::runtime_error(command.front() + " shows no window");
    }
    const auto end = Clock::now();
    const double memory = static_cast<double>(process.Usage().peakMemoryKiB) / 1024;
    process.Kill();
    watch.Settle();
    return {std::chrono::duration<double, std::milli>(end - start).count(), memory};
}

double Median(const std::vector<Sample>& samples, double Sample::*value) {
    std::vector<double> values;
    values.reserve(samples.size());
    for (const Sample& sample : samples) {
        values.push_back(sample.*value);
    }
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// Reads the arguments; gives nothing if they name no program.
std::optional<Request> ParseArguments(const std::vector<std::string>& arguments) {
    Request request;
    std::size_t next = 0;
    if (arguments.size() > 2 && arguments[0] == "--runs") {
        request.runs = std::atoi(arguments[1].c_str());
        next = 2;
    }
    std::size_t command = 0;
    for (bool first = true; next < arguments.size(); ++next) {
        if (arguments[next] != "--") {
            request.commands.at(command).push_back(arguments[next]);
        } else if (!first && ++command == request.commands.size()) {
            return std::nullopt;
        }
        first = false;
    }
    if (request.runs < 1 || request.commands[0].empty()) {
        return std::nullopt;
    }
    if (request.commands[1].empty()) {
        request.commands[1] = {EMPTY_WINDOW};
    }
    return request;
}

void Run(const Request& request) {
    const Desktop desktop({.windowManager = false, .accessibility = false});
    PaintWatch watch;
    std::array<std::vector<Sample>, 2> samples;
    // The first round is not counted: it only fills the file cache.
    for (int run = -1; run < request.runs; ++run) {
        for (std::size_t side = 0; side < samples.size(); ++side) {
            const Sample sample = Measure(watch, request.commands[side], desktop.Home() / "programs.log");
            if (run >= 0) {
                samples[side].push_back(sample);
            }
        }
    }
    std::array<double, 2> time{};
    std::array<double, 2> memory{};
    for (std::size_t side = 0; side < samples.size(); ++side) {
        time[side] = Median(samples[side], &Sample::milliseconds);
        memory[side] = Median(samples[side], &Sample::memoryMiB);
        std::printf("%c  %8.1f ms  %7.1f MiB  %s\n", side == 0 ? 'A' : 'B', time[side], memory[side],
                    request.commands[side].front().c_str());
    }
    std::printf("A/B %7.3f     %7.3f      medians of %d runs\n", time[0] / time[1], memory[0] / memory[1],
                request.runs);
}

} // namespace

int main(int argc, char** argv) {
    try {
        const auto request = ParseArguments({argv + 1, argv + argc});
        if (!request) {
            std::fputs("startup_bench --runs N -- PROGRAM_A [ARG...] [-- PROGRAM_B [ARG...]]\n", stderr);
            return 2;
        }
        Run(*request);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "startup_bench: %s\n", error.what());
        return 1;
    }
}
