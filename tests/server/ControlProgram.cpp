#include "tests/server/ControlProgram.h"

#include <array>
#include <stdexcept>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarveth {

namespace {

[[noreturn]] void RunProgram(std::vector<std::string> words, int output) {
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    execv(arguments.front(), arguments.data());
    _exit(127);
}

} // namespace

ControlRun RunControl(const std::string& socket, const std::vector<std::string>& words) {
    std::vector<std::string> command = {CONTROL_PROGRAM, "--socket", socket};
    command.insert(command.end(), words.begin(), words.end());
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const pid_t process = fork();
    if (process == 0)
        RunProgram(command, ends[1]);
    close(ends[1]);
    ControlRun run;
    std::array<char, 4096> part{};
    for (ssize_t size = 0; (size = read(ends[0], part.data(), part.size())) > 0;)
        run.output.append(part.data(), static_cast<std::size_t>(size));
    close(ends[0]);
    int status = 0;
    waitpid(process, &status, 0);
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

} // namespace tarveth
