// A server that is measured, the lobby or the relay, as a process on a port that the system chose.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace tarveth {

class ServerProcess {
public:
    // Starts the program and waits until it listens; throws std::runtime_error if it does not.
    explicit ServerProcess(const std::vector<std::string>& command);
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    int Port() const { return port_; }
    double SecondsToListen() const { return secondsToListen_; }
    // Gives the processor time that the process has used.
    double ProcessorSeconds() const;
    // Gives the resident size.
    double MemoryBytes() const;
    // Gives the line that the server logs on SIGUSR1.
    std::string Figures() const;

private:
    std::string ReadLine() const;

    pid_t process_ = -1;
    int log_ = -1;
    int port_ = 0;
    double secondsToListen_ = 0;
};

double SecondsNow();

} // namespace tarveth
