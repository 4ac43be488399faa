#include "bench/lobby/Attackers.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <arpa/inet.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarveth {

namespace {

constexpr unsigned kAddresses = 50;
constexpr useconds_t kPause = 200; // between two rounds, in microseconds

struct Connection {
    int socket = -1;
    int floods = 0;
    std::string unsent;
};

// Connects without waiting; -1 if that fails.
int Connect(int port, unsigned network, unsigned host) {
    const int client = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(0x7F020000U | (network << 8U) | host); // 127.2.network.host
    if (client < 0 || bind(client, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
        return -1;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    if (connect(client, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 || errno == EINPROGRESS)
        return client;
    close(client);
    return -1;
}

// With a reset, so that the ports are free at once.
void Close(Connection& connection) {
    const linger none{1, 0};
    setsockopt(connection.socket, SOL_SOCKET, SO_LINGER, &none, sizeof none);
    close(connection.socket);
    connection = {};
}

std::string Numbered(std::string text, unsigned number) {
    for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at))
        text.replace(at, 1, std::to_string(number));
    return text;
}

// False if the lobby has closed the connection.
bool Drain(int socket) {
    static std::array<char, 65536> bytes;
    const ssize_t size = recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
    return size > 0 || (size < 0 && (errno == EAGAIN || errno == EWOULDBLOCK));
}

void Step(Connection& connection, const Attack& attack) {
    if (attack.reads && !Drain(connection.socket)) {
        Close(connection);
        return;
    }
    if (connection.unsent.empty() && !attack.flood.empty()) {
        if (attack.floods > 0 && ++connection.floods > attack.floods) {
            Close(connection);
            return;
        }
        connection.unsent = attack.flood;
    }
    const ssize_t sent = send(connection.socket, connection.unsent.data(), connection.unsent.size(),
                              MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent > 0)
        connection.unsent.erase(0, static_cast<std::size_t>(sent));
    else if (sent < 0 && errno != EAGAIN && errno != EWOULDBLOCK && errno != ENOTCONN)
        Close(connection);
}

[[noreturn]] void Run(int port, const Attack& attack, unsigned network) {
    // The attackers' own work must not take the processor from those who are measured.
    const sched_param ordinary{};
    sched_setscheduler(0, SCHED_OTHER, &ordinary);
    setpriority(PRIO_PROCESS, 0, 0);
    std::vector<Connection> connections(kAddresses * attack.perAddress);
    for (unsigned number = 0;;) {
        for (std::size_t i = 0; i < connections.size(); ++i) {
            Connection& connection = connections[i];
            if (connection.socket >= 0) {
                Step(connection, attack);
                continue;
            }
            connection.socket = Connect(port, network, 1 + static_cast<unsigned>(i) % kAddresses);
            connection.unsent = Numbered(attack.greeting, ++number);
        }
        usleep(kPause);
    }
}

} // namespace

Attackers::Attackers(int port, const Attack& attack, unsigned network) : process_(fork()) {
    if (process_ == 0)
        Run(port, attack, network);
}

Attackers::~Attackers() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

} // namespace tarveth
