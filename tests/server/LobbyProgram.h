// The lobby program as a process, on a port that the system chose, and blocking clients of it.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace tarveth {

class LobbyProgram {
public:
    // Starts the program with --exempt-loopback, which the options may switch off again; throws
    // std::runtime_error if it does not begin to listen. The options may give a
    // --bind address other than 127.0.0.1, and a --port. fileLimit: the program's limit of open files
    // (RLIMIT_NOFILE); 0 leaves the usual one.
    explicit LobbyProgram(const std::vector<std::string>& options = {}, unsigned fileLimit = 0);
    // Starts the lobby by this command, such as the Windows program under Wine.
    LobbyProgram(const std::vector<std::string>& command, const std::vector<std::string>& options,
                 unsigned fileLimit = 0);
    ~LobbyProgram();
    LobbyProgram(const LobbyProgram&) = delete;
    LobbyProgram& operator=(const LobbyProgram&) = delete;

    const std::string& Address() const { return address_; }
    int Port() const { return port_; }
    void Signal(int signal) const;
    // Gives the resident size of the process in bytes.
    std::size_t ResidentBytes() const;
    // Waits for a line of the log that holds the text, and gives it; empty if none comes.
    std::string LogLineWith(std::string_view text);
    // Waits until the program ends, and gives its exit code; -1 if a signal ended it.
    int WaitForEnd();

private:
    void Kill();
    std::string LogLine();

    pid_t process_ = -1;
    int log_ = -1;
    std::string address_;
    int port_ = 0;
};

class LobbyClient {
public:
    // receiveBuffer: the size of the socket's receive buffer (SO_RCVBUF); 0 leaves the usual one.
    // from: the local address to connect from, such as 127.0.0.2 or ::1; empty for the usual one.
    explicit LobbyClient(const LobbyProgram& program, int receiveBuffer = 0, const std::string& from = {});
    // Connects, takes a nickname, and reads the list of users.
    LobbyClient(const LobbyProgram& program, const std::string& nick, int receiveBuffer = 0,
                const std::string& from = {});
    ~LobbyClient() { Close(); }
    LobbyClient(LobbyClient&& other) noexcept;
    LobbyClient& operator=(LobbyClient&&) = delete;

    void Say(std::string_view bytes);
    // Waits for the text, and takes what was received up to its end. Empty if the text does not come in time
    // or the connection ends before.
    std::string HearUntil(std::string_view text);
    // Takes what is received until the server closes; empty if it does not close in time.
    std::string HearToTheEnd();
    void StopWriting();
    // Lets the client vanish as if its network had gone: it is sent nothing that it takes, and says nothing.
    void Vanish();
    // Closes with a TCP reset, so that the peer gets an error instead of an end.
    void Abort();
    void Close();

private:
    bool Receive();

    int socket_ = -1;
    std::string heard_;
    bool ended_ = false;
};

// Begins a game between two clients; the first is the inviter.
void StartGame(LobbyClient& inviter, const std::string& inviterNick, LobbyClient& invitee,
               const std::string& inviteeNick);

} // namespace tarveth
