// A program under test, run as a user would run it.
#pragma once

#include "tests/window/Process.h"
#include "tests/window/Window.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth::harness {

struct ProgramOptions {
    std::filesystem::path path;
    std::vector<std::string> arguments = {};
    std::map<std::string, std::string> environment = {}; // on top of the desktop's
    std::filesystem::path workingFolder = {};            // empty: the test's own
};

class Program {
public:
    // Starts it. `screen` must live as long as this does.
    Program(Screen& screen, const ProgramOptions& options);
    // Kills it if it is still there.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // The first visible window of this program whose title holds `title`, once it has the keyboard, or a box
    // of the program that has opened above it. Throws std::runtime_error, with what the program wrote, when
    // none comes within `patience`.
    Window WaitForWindow(std::string_view title, Milliseconds patience = kPatience);
    // Its windows that are on the screen now, oldest first.
    [[nodiscard]] std::vector<Window> Windows() const;
    // Their titles.
    [[nodiscard]] std::vector<std::string> WindowTitles() const;

    // True while one of its windows has the keyboard.
    [[nodiscard]] bool HasKeyboard() const;

    [[nodiscard]] pid_t Pid() const { return process_.Pid(); }
    [[nodiscard]] bool Alive() { return process_.Alive(); }
    // As Process::WaitForExit.
    std::optional<int> WaitForExit(Milliseconds patience = kPatience) {
        return process_.WaitForExit(patience);
    }
    // As Process::Stop and Process::Continue.
    void Stop() { process_.Stop(); }
    void Continue() { process_.Continue(); }
    [[nodiscard]] ProcessUsage Usage() const { return process_.Usage(); }
    // What it has written to its standard output and errors so far.
    [[nodiscard]] std::string Output() const;

private:
    Screen* screen_;
    std::filesystem::path output_;
    Process process_;
};

} // namespace tarveth::harness
