// A child process that ends with its parent, and the processor time and memory that it uses.
#pragma once

#include "tests/window/Waiting.h"

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tarveth::harness {

struct ProcessOptions {
    std::vector<std::string> command; // program (looked up in PATH without a slash) and arguments
    std::map<std::string, std::string> environment = {}; // on top of this process's own
    std::filesystem::path workingFolder = {};            // empty: this process's own
    std::filesystem::path output = {}; // gets standard output and errors; empty: shared with us
    int inheritedDescriptor = -1;      // stays open in the child; all others of ours are closed
};

// The resources that a process has used since its start.
struct ProcessUsage {
    std::chrono::nanoseconds cpuTime{}; // user and system time of all its threads, ended ones too
    std::map<pid_t, long long> voluntarySwitches = {}; // how often each living thread of it went to sleep
    long long peakMemoryKiB = 0;                       // largest resident size
};

// Gives how often threads of the process went to sleep between two measurements. A thread that has ended in
// between counts as one.
long long WakeUpsBetween(const ProcessUsage& before, const ProcessUsage& after);

class Process {
public:
    // Starts the program. Throws std::system_error when no process can be made; a program that is not there
    // ends with status 127.
    explicit Process(const ProcessOptions& options);
    // Kills the process and its children that are still there.
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    [[nodiscard]] pid_t Pid() const { return pid_; }
    [[nodiscard]] bool Alive();
    // Waits for the end of the process. Gives its exit status, 128 + signal number if a signal ended it, and
    // nothing if it is alive after `patience`.
    std::optional<int> WaitForExit(Milliseconds patience = kPatience);
    // Stops the process (SIGSTOP) until Continue is called; returns when it has stopped.
    void Stop();
    void Continue();
    // Ends the process and its children at once, without asking.
    void Kill();
    // Gives the usage so far; all zero when the process has ended.
    [[nodiscard]] ProcessUsage Usage() const;

private:
    pid_t pid_ = -1;
    std::optional<int> status_;
};

} // namespace tarveth::harness
