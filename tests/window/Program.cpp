#include "tests/window/Program.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include <unistd.h>

namespace tarveth::harness {

namespace {

std::filesystem::path NewOutputFile() {
    std::string name = (std::filesystem::temp_directory_path() / "tarveth-output-XXXXXX").string();
    const int file = mkstemp(name.data());
    if (file < 0) {
        throw std::system_error(errno, std::generic_category(), name);
    }
    close(file);
    return name;
}

ProcessOptions ForProcess(const ProgramOptions& options, const std::filesystem::path& output) {
    ProcessOptions result;
    result.command = {options.path.string()};
    result.command.insert(result.command.end(), options.arguments.begin(), options.arguments.end());
    result.environment = options.environment;
    result.workingFolder = options.workingFolder;
    result.output = output;
    return result;
}

} // namespace

Program::Program(Screen& screen, const ProgramOptions& options)
    : screen_(&screen),
      startsAnother_(options.startsAnother),
      output_(NewOutputFile()),
      process_(ForProcess(options, output_)) {}

Program::~Program() {
    std::error_code ignored;
    std::filesystem::remove(output_, ignored);
}

std::vector<Window> Program::Windows() const {
    std::vector<Window> windows;
    for (const WindowId id : screen_->TopLevels()) {
        const auto owner = screen_->Property(id, "_NET_WM_PID");
        const Window window(*screen_, id);
        const bool isOurs = startsAnother_ || (!owner.empty() && static_cast<pid_t>(owner.front()) == Pid());
        if (isOurs && window.Visible()) {
            windows.push_back(window);
        }
    }
    return windows;
}

Window Program::WaitForWindow(std::string_view title, Milliseconds patience) {
    std::optional<Window> found;
    WaitUntil(
        [&] {
            for (const Window& window : Windows()) {
                if (!found && window.Title().find(title) != std::string::npos) {
                    found = window;
                }
            }
            return found.has_value() || (!startsAnother_ && !Alive());
        },
        patience);
    if (found) {
        found->AskForKeyboard();
    }
    if (!found || !WaitUntil([&] { return HasKeyboard(); })) {
        throw std::runtime_error("no window \"" + std::string(title) + "\" of the program: " + Output());
    }
    return *found;
}

bool Program::HasKeyboard() const {
    const std::vector<Window> windows = Windows();
    return std::any_of(windows.begin(), windows.end(),
                       [&](const Window& window) { return window.Id() == screen_->Active(); });
}

std::vector<std::string> Program::WindowTitles() const {
    std::vector<std::string> titles;
    for (const Window& window : Windows()) {
        titles.push_back(window.Title());
    }
    return titles;
}

std::string Program::Output() const {
    std::ifstream file(output_);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace tarveth::harness
