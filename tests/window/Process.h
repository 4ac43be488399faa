// A child process that cannot outlive the one that started it, and what it has used of the machine.
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

// What a process has used since it began.
struct ProcessUsage {
    std::chrono::nanoseconds cpuTime{}; // user and system time of all its threads, ended ones too
    std::map<pid_t, long long> voluntarySwitches = {}; // how often each living thread of it went to sleep
    long long peakMemoryKiB = 0;                       // largest resident size
};

// How often threads of the process went to sleep between two looks at it. Of a thread that has ended in
// between only its end is known, and counts as one.
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
    // The exit status, 128 + signal number when a signal ended it, nothing when it is alive after `patience`.
    std::optional<int> WaitForExit(Milliseconds patience = kPatience);
    // Stops the process where it is, until Continue; returns once it stands still.
    void Stop();
    void Continue();
    // Ends the process and its children at once, without asking.
    void Kill();
    // All zero once the process has ended.
    [[nodiscard]] ProcessUsage Usage() const;

private:
    pid_t pid_ = -1;
    std::optional<int> status_;
};

} // namespace tarveth::harness
