#include "bench/lobby/ServerProcess.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarveth {

ServerProcess::ServerProcess(const std::vector<std::string>& command) {
    std::vector<std::string> words = command;
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const double start = SecondsNow();
    process_ = fork();
    if (process_ == 0) {
        dup2(ends[1], STDERR_FILENO);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    close(ends[1]);
    log_ = ends[0];
    const std::string line = ReadLine();
    secondsToListen_ = SecondsNow() - start;
    const std::size_t number = line.rfind(' ');
    if (number == std::string::npos)
        throw std::runtime_error("can't run " + command.front());
    port_ = std::atoi(line.c_str() + number);
}

ServerProcess::~ServerProcess() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    close(log_);
}

std::string ServerProcess::ReadLine() const {
    std::string line;
    for (char c = 0; read(log_, &c, 1) == 1 && c != '\n';)
        line += c;
    return line;
}

double ServerProcess::ProcessorSeconds() const {
    double nanoseconds = 0;
    std::ifstream("/proc/" + std::to_string(process_) + "/schedstat") >> nanoseconds;
    return nanoseconds * 1e-9;
}

double ServerProcess::MemoryBytes() const {
    double pages = 0;
    std::ifstream("/proc/" + std::to_string(process_) + "/statm") >> pages >> pages;
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE));
}

std::string ServerProcess::Figures() const {
    // The log may fill the pipe, and then leaves lines out.
    for (pollfd waiting{log_, POLLIN, 0}; poll(&waiting, 1, 0) == 1;)
        ReadLine();
    kill(process_, SIGUSR1);
    std::string line = ReadLine();
    while (!line.empty() && line.find(" connections, ") == std::string::npos)
        line = ReadLine();
    return line;
}

double SecondsNow() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace tarveth
