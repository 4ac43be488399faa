#include "tests/window/Process.h"

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <system_error>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarveth::harness {

namespace {

std::vector<std::string> MergedEnvironment(const std::map<std::string, std::string>& additions) {
    std::vector<std::string> merged;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        if (!additions.contains(text.substr(0, text.find('=')))) {
            merged.push_back(text);
        }
    }
    for (const auto& [name, value] : additions) {
        std::string& entry = merged.emplace_back(name);
        entry.append("=").append(value);
    }
    return merged;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

// Runs in the child between fork and exec, where only system calls are safe.
[[noreturn]] void Become(const ProcessOptions& options, pid_t parent, int output, char* const* arguments,
                         char* const* environment) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent) {
        _exit(126);
    }
    if (output >= 0) {
        dup2(output, STDOUT_FILENO);
        dup2(output, STDERR_FILENO);
    }
    if (options.inheritedDescriptor >= 0) {
        fcntl(options.inheritedDescriptor, F_SETFD, 0);
    }
    if (!options.workingFolder.empty() && chdir(options.workingFolder.c_str()) != 0) {
        _exit(126);
    }
    execvpe(arguments[0], arguments, environment);
    _exit(127);
}

// Gives the exit status as a shell does: 128 + signal number if a signal ended the process.
int ExitStatus(int status) {
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// Gives the number after `key` in a file of "key: number" lines; 0 if the key is missing.
long long StatusNumber(const std::filesystem::path& file, const std::string& key) {
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(key)) {
            return std::atoll(line.c_str() + key.size());
        }
    }
    return 0;
}

// Reads the process's CPU-time clock, which counts nanoseconds, while /proc/PID/stat counts ticks of 10 ms.
std::chrono::nanoseconds CpuTime(pid_t process) {
    clockid_t clock{};
    timespec used{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &used) != 0) {
        return {};
    }
    return std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
}

} // namespace

long long WakeUpsBetween(const ProcessUsage& before, const ProcessUsage& after) {
    long long wakeUps = 0;
    for (const auto& [thread, switches] : after.voluntarySwitches) {
        const auto earlier = before.voluntarySwitches.find(thread);
        wakeUps += switches - (earlier == before.voluntarySwitches.end() ? 0 : earlier->second);
    }
    for (const auto& [thread, switches] : before.voluntarySwitches) {
        wakeUps += after.voluntarySwitches.contains(thread) ? 0 : 1;
    }
    return wakeUps;
}

Process::Process(const ProcessOptions& options) {
    std::vector<std::string> command = options.command;
    std::vector<std::string> environment = MergedEnvironment(options.environment);
    const std::vector<char*> arguments = Pointers(command);
    const std::vector<char*> variables = Pointers(environment);
    const int output = options.output.empty()
                           ? -1
                           : open(options.output.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const pid_t parent = getpid();
    pid_ = fork();
    if (pid_ == 0) {
        Become(options, parent, output, arguments.data(), variables.data());
    }
    const int error = errno;
    if (output >= 0) {
        close(output);
    }
    if (pid_ < 0) {
        throw std::system_error(error, std::generic_category(), options.command.front());
    }
    setpgid(pid_, pid_); // here too: the group must be there before the first Kill
}

Process::~Process() {
    Kill();
}

bool Process::Alive() {
    if (status_) {
        return false;
    }
    int status = 0;
    if (waitpid(pid_, &status, WNOHANG) != pid_) {
        return true;
    }
    status_ = ExitStatus(status);
    return false;
}

std::optional<int> Process::WaitForExit(Milliseconds patience) {
    WaitUntil([this] { return !Alive(); }, patience);
    return status_;
}

void Process::Stop() {
    int status = 0;
    kill(pid_, SIGSTOP);
    if (waitpid(pid_, &status, WUNTRACED) == pid_ && !WIFSTOPPED(status)) {
        status_ = ExitStatus(status); // it has ended before the signal came
    }
}

void Process::Continue() {
    kill(pid_, SIGCONT);
}

void Process::Kill() {
    kill(-pid_, SIGKILL);
    WaitForExit();
}

ProcessUsage Process::Usage() const {
    const std::filesystem::path folder = "/proc/" + std::to_string(pid_);
    ProcessUsage usage;
    usage.cpuTime = CpuTime(pid_);
    usage.peakMemoryKiB = StatusNumber(folder / "status", "VmHWM:");
    std::error_code gone;
    for (std::filesystem::directory_iterator thread(folder / "task", gone), end; thread != end;
         thread.increment(gone)) {
        const std::string id = thread->path().filename().string();
        usage.voluntarySwitches[static_cast<pid_t>(std::atol(id.c_str()))] =
            StatusNumber(thread->path() / "status", "voluntary_ctxt_switches:");
    }
    return usage;
}

} // namespace tarveth::harness
