// A program with windows that is run for a test, as a user would run it.
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
    bool startsAnother =
        false; // the windows are those of a program that this one starts, alone on its screen
};

class Program {
public:
    // Starts the program. `screen` outlives the object.
    Program(Screen& screen, const ProgramOptions& options);
    // Kills the program if it still runs.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // Waits until a visible window of the program whose title contains `title`, or a message box above it,
    // has the focus, and gives the window. Throws std::runtime_error with the program's output when that does
    // not happen within `patience`.
    Window WaitForWindow(std::string_view title, Milliseconds patience = kPatience);
    // Gives the program's windows that are on the screen, oldest first.
    [[nodiscard]] std::vector<Window> Windows() const;
    // Gives the titles of these windows.
    [[nodiscard]] std::vector<std::string> WindowTitles() const;

    // Whether one of the program's windows has the focus.
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
    // Gives what the program has written to standard output and standard error so far.
    [[nodiscard]] std::string Output() const;

private:
    Screen* screen_;
    bool startsAnother_;
    std::filesystem::path output_;
    Process process_;
};

} // namespace tarveth::harness
