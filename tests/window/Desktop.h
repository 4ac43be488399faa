// A separate desktop for window tests and start-up benches: display server, window manager, message bus,
// accessibility and a home folder. It shares nothing with the desktop that it is started on.
#pragma once

#include "tests/window/Process.h"

#include <memory>
#include <string>

namespace tarveth::harness {

struct DesktopOptions {
    bool windowManager = true;
    bool accessibility = true; // false: there is no message bus, and programs are told so
};

class Desktop {
public:
    // Starts all parts and waits until they run. Sets DISPLAY, HOME and so on in the environment of this
    // process and so of the programs that it starts. Throws std::runtime_error or std::system_error when a
    // part cannot be started.
    explicit Desktop(const DesktopOptions& options = {});
    // Ends all parts and removes the home folder.
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    [[nodiscard]] const std::filesystem::path& Home() const { return home_; }

private:
    void SetEnvironment() const;
    void StartServer();
    void StartBus();
    void StartWindowManager();

    std::filesystem::path home_;
    std::unique_ptr<Process> server_;
    std::unique_ptr<Process> bus_;
    std::unique_ptr<Process> windowManager_;
};

} // namespace tarveth::harness
