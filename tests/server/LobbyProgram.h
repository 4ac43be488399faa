// The lobby as a program of its own, on a port that the system chose, and plain blocking clients of it.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace tarveth {

class LobbyProgram {
public:
    // Runs until it is destroyed or ended; throws std::runtime_error if it does not begin to listen. The
    // options may give another address than 127.0.0.1 and a port of their own.
    // fileLimit: open files that the system lets it have; 0 for the usual.
    explicit LobbyProgram(const std::vector<std::string>& options = {}, unsigned fileLimit = 0);
    // The program that this command runs, such as one of another system.
    LobbyProgram(const std::vector<std::string>& command, const std::vector<std::string>& options,
                 unsigned fileLimit = 0);
    ~LobbyProgram();
    LobbyProgram(const LobbyProgram&) = delete;
    LobbyProgram& operator=(const LobbyProgram&) = delete;

    const std::string& Address() const { return address_; }
    int Port() const { return port_; }
    void Signal(int signal) const;
    // Its next line of log.
    std::string LogLine();
    // Waits for its end, and gives its exit code; -1 if a signal ended it.
    int WaitForEnd();

private:
    void Kill();

    pid_t process_ = -1;
    int log_ = -1;
    std::string address_;
    int port_ = 0;
};

class LobbyClient {
public:
    // receiveBuffer: bytes that the system keeps for it while it does not read; 0 for the usual.
    explicit LobbyClient(const LobbyProgram& program, int receiveBuffer = 0);
    // With a nickname, and the list of users read.
    LobbyClient(const LobbyProgram& program, const std::string& nick, int receiveBuffer = 0);
    ~LobbyClient() { Close(); }
    LobbyClient(LobbyClient&& other) noexcept;
    LobbyClient& operator=(LobbyClient&&) = delete;

    void Say(std::string_view bytes);
    // All that has been heard and not yet taken, up to and with the first such text; waits for it. Empty if
    // it does not come in time or the connection ends.
    std::string HearUntil(std::string_view text);
    // All that comes until the server closes; nothing if it does not within its time.
    std::string HearToTheEnd();
    void StopWriting();
    // Closes so that the peer gets an error, not an end.
    void Abort();
    void Close();

private:
    bool Receive();

    int socket_ = -1;
    std::string heard_;
    bool ended_ = false;
};

// Puts them in a game; the inviter is the first.
void StartGame(LobbyClient& inviter, const std::string& inviterNick, LobbyClient& invitee,
               const std::string& inviteeNick);

} // namespace tarveth
