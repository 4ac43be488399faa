// A test of this program that runs in a process of its own, which is killed while it works.
#pragma once

#include <string>

#include <windows.h>

namespace tarveth {

class KilledProcess {
public:
    // Starts the one test of that full name, disabled or not. `file` and `call` are for ToldFile and ToldCall
    // in there.
    KilledProcess(const std::string& test, const std::string& file, int call);
    ~KilledProcess(); // kills it
    KilledProcess(const KilledProcess&) = delete;
    KilledProcess& operator=(const KilledProcess&) = delete;

    // The number of the process.
    DWORD Number() const { return process_.dwProcessId; }

    // Waits until it has called TellReady.
    void WaitUntilReady() const;

    // Kills it and waits for its end.
    void Kill() const;

    // Waits for its end by itself, and gives its exit code.
    int Wait() const;

private:
    HANDLE ready_ = nullptr; // an event, which the process inherits
    PROCESS_INFORMATION process_ = {};
};

// In the process: what its maker told it.
std::string ToldFile();
int ToldCall();

// In the process: lets its maker's WaitUntilReady come back.
void TellReady();

// In the process: from now on, all calls that open, change, move or close files are counted, and it ends as
// if killed when the call-th of them is due; never with 0.
void DieAtCall(int call);
int CallsSoFar();

// The exit code of a process that died so.
inline constexpr int kDied = 99;

} // namespace tarveth
