#include "tests/server/LobbyProgram.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <utility>

#include <arpa/inet.h>
#include <fcntl.h>
#include <linux/filter.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarveth {

namespace {

// Much longer than anything takes, so that a failing test ends.
constexpr int kPatience = 20000; // milliseconds

[[noreturn]] void RunProgram(std::vector<std::string> words, const std::vector<std::string>& options,
                             unsigned fileLimit, int log) {
    dup2(log, STDERR_FILENO);
    if (fileLimit > 0) {
        const rlimit limit{fileLimit, fileLimit};
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    if (std::find(options.begin(), options.end(), "--port") == options.end())
        words.insert(words.end(), {"--port", "0"});
    words.emplace_back("--exempt-loopback");
    words.insert(words.end(), options.begin(), options.end());
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    execvp(arguments.front(), arguments.data());
    _exit(127);
}

// Gives the word that follows the option of that name.
std::string ValueOf(const std::vector<std::string>& options, std::string_view name,
                    const std::string& otherwise) {
    const auto at = std::find(options.begin(), options.end(), name);
    return at == options.end() || at + 1 == options.end() ? otherwise : *(at + 1);
}

// Calls use(address, size) with the address of the text and the port.
template <class Use>
bool WithAddress(const std::string& text, int port, Use use) {
    const auto networkPort = htons(static_cast<std::uint16_t>(port));
    if (text.find(':') == std::string::npos) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = networkPort;
        inet_pton(AF_INET, text.c_str(), &address.sin_addr);
        return use(reinterpret_cast<const sockaddr*>(&address), sizeof address);
    }
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_port = networkPort;
    inet_pton(AF_INET6, text.c_str(), &address.sin6_addr);
    return use(reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

bool WaitFor(int file, short events) {
    pollfd wait{file, events, 0};
    return poll(&wait, 1, kPatience) == 1;
}

} // namespace

LobbyProgram::LobbyProgram(const std::vector<std::string>& options, unsigned fileLimit)
    : LobbyProgram({LOBBY_PROGRAM}, options, fileLimit) {}

LobbyProgram::LobbyProgram(const std::vector<std::string>& command, const std::vector<std::string>& options,
                           unsigned fileLimit)
    : address_(ValueOf(options, "--bind", "127.0.0.1")) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    process_ = fork();
    if (process_ == 0)
        RunProgram(command, options, fileLimit, ends[1]);
    close(ends[1]);
    log_ = ends[0];
    const std::string line = LogLine();
    const std::size_t number = line.rfind(' ');
    if (line.find(" listens on ") == std::string::npos) {
        Kill();
        throw std::runtime_error("the lobby did not start: " + line);
    }
    port_ = std::atoi(line.c_str() + number);
}

LobbyProgram::~LobbyProgram() {
    Kill();
}

void LobbyProgram::Kill() {
    if (process_ > 0) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    close(log_);
}

void LobbyProgram::Signal(int signal) const {
    kill(process_, signal);
}

std::size_t LobbyProgram::ResidentBytes() const {
    std::size_t pages = 0;
    std::ifstream("/proc/" + std::to_string(process_) + "/statm") >> pages >> pages;
    return pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

std::string LobbyProgram::LogLine() {
    std::string line;
    char c = 0;
    while (WaitFor(log_, POLLIN) && read(log_, &c, 1) == 1 && c != '\n')
        line += c;
    return line;
}

std::string LobbyProgram::LogLineWith(std::string_view text) {
    for (std::string line = LogLine(); !line.empty(); line = LogLine())
        if (line.find(text) != std::string::npos)
            return line;
    return {};
}

int LobbyProgram::WaitForEnd() {
    int status = 0;
    waitpid(std::exchange(process_, -1), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

LobbyClient::LobbyClient(const LobbyProgram& program, int receiveBuffer, const std::string& from) {
    // A lobby on "::" serves both families; the client's own address then says which.
    const bool wide = program.Address().find(':') != std::string::npos;
    const bool isIPv6 = wide && from.find('.') == std::string::npos;
    const std::string to = wide && !isIPv6 ? "127.0.0.1" : program.Address();
    socket_ = socket(isIPv6 ? AF_INET6 : AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (receiveBuffer > 0)
        setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
    if (!from.empty() && !WithAddress(from, 0, [this](const sockaddr* address, socklen_t size) {
            return bind(socket_, address, size) == 0;
        }))
        throw std::runtime_error("no client can come from " + from);
    if (!WithAddress(to, program.Port(), [this](const sockaddr* address, socklen_t size) {
            return connect(socket_, address, size) == 0;
        }))
        throw std::runtime_error("the lobby can't be reached");
    const int on = 1;
    setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

LobbyClient::LobbyClient(const LobbyProgram& program, const std::string& nick, int receiveBuffer,
                         const std::string& from)
    : LobbyClient(program, receiveBuffer, from) {
    Say("\251clientver(2.6.4)\251nick(" + nick + ")\251sendnicks()");
    HearUntil("\251addnick(" + nick + ",");
}

LobbyClient::LobbyClient(LobbyClient&& other) noexcept
    : socket_(std::exchange(other.socket_, -1)), heard_(std::move(other.heard_)), ended_(other.ended_) {}

void LobbyClient::Say(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

bool LobbyClient::Receive() {
    std::array<char, 65536> bytes{};
    const ssize_t size = WaitFor(socket_, POLLIN) ? recv(socket_, bytes.data(), bytes.size(), 0) : -1;
    ended_ = size == 0;
    if (size > 0)
        heard_.append(bytes.data(), static_cast<std::size_t>(size));
    return size > 0;
}

std::string LobbyClient::HearUntil(std::string_view text) {
    std::size_t at = heard_.find(text);
    while (at == std::string::npos) {
        if (!Receive())
            return {};
        at = heard_.find(text);
    }
    std::string taken = heard_.substr(0, at + text.size());
    heard_.erase(0, taken.size());
    return taken;
}

std::string LobbyClient::HearToTheEnd() {
    while (Receive()) {
    }
    return ended_ ? std::exchange(heard_, {}) : std::string();
}

void LobbyClient::StopWriting() {
    shutdown(socket_, SHUT_WR);
}

// A filter that takes no packet: the system then acknowledges nothing either.
void LobbyClient::Vanish() {
    sock_filter drop{BPF_RET | BPF_K, 0, 0, 0};
    const sock_fprog filter{1, &drop};
    if (setsockopt(socket_, SOL_SOCKET, SO_ATTACH_FILTER, &filter, sizeof filter) != 0)
        throw std::runtime_error("the client can't vanish");
}

void LobbyClient::Abort() {
    const linger now{1, 0};
    setsockopt(socket_, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    Close();
}

void LobbyClient::Close() {
    if (socket_ >= 0)
        close(std::exchange(socket_, -1));
}

void StartGame(LobbyClient& inviter, const std::string& inviterNick, LobbyClient& invitee,
               const std::string& inviteeNick) {
    inviter.Say("\251invite(" + inviteeNick + "," + inviterNick + ")");
    invitee.HearUntil("\251invite(" + inviteeNick + "," + inviterNick + ")");
    invitee.Say("\251accept(" + inviterNick + "," + inviteeNick + ", " + inviteeNick + " accepts)");
    inviter.HearUntil("\251accept(" + inviterNick + "," + inviteeNick);
    invitee.HearUntil("\251changenick(" + inviteeNick + "," + inviteeNick + ",1)");
}

} // namespace tarveth
