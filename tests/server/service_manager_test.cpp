// Tests of what the lobby tells the service manager that has started it.
#include "tests/platform/TempFolder.h"
#include "tests/server/LobbyProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarveth {
namespace {

// The manager's end: a datagram socket.
class Manager {
public:
    Manager() : socket_(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, path_.data(), path_.size());
        EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }
    ~Manager() { close(socket_); }
    Manager(const Manager&) = delete;
    Manager& operator=(const Manager&) = delete;

    const std::string& Path() const { return path_; }
    // Waits for the next message.
    std::string Hear() const {
        constexpr int kPatience = 20000; // milliseconds
        std::array<char, 256> text{};
        pollfd wait{socket_, POLLIN, 0};
        const ssize_t size = poll(&wait, 1, kPatience) == 1 ? recv(socket_, text.data(), text.size(), 0) : 0;
        return {text.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
    }

private:
    TempFolder folder_;
    std::string path_ = folder_.File("notify");
    int socket_;
};

// Starts the lobby with these variables in its environment.
LobbyProgram StartWith(std::vector<std::string> variables) {
    variables.insert(variables.begin(), "env");
    variables.emplace_back(LOBBY_PROGRAM);
    return {variables, std::vector<std::string>()};
}

TEST(ServiceManager, HearsThatTheLobbyServesAndThatItStops) {
    const Manager manager;
    LobbyProgram program = StartWith({"NOTIFY_SOCKET=" + manager.Path()});
    EXPECT_EQ(manager.Hear(), "READY=1");
    program.Signal(SIGTERM);
    EXPECT_EQ(manager.Hear(), "STOPPING=1");
    EXPECT_EQ(program.WaitForEnd(), 0);
}

TEST(ServiceManager, HearsAgainAndAgainThatTheLobbyIsAlive) {
    const Manager manager;
    const LobbyProgram program = StartWith({"NOTIFY_SOCKET=" + manager.Path(), "WATCHDOG_USEC=100000"});
    EXPECT_EQ(manager.Hear(), "READY=1");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(manager.Hear(), "WATCHDOG=1");
}

TEST(ServiceManager, ThatWatchesAnotherProcessHearsNothingOfTheKind) {
    const Manager manager;
    LobbyProgram program =
        StartWith({"NOTIFY_SOCKET=" + manager.Path(), "WATCHDOG_USEC=1000", "WATCHDOG_PID=1"});
    EXPECT_EQ(manager.Hear(), "READY=1");
    program.Signal(SIGTERM);
    EXPECT_EQ(manager.Hear(), "STOPPING=1");
}

TEST(ServiceManager, ThatIsNotThereIsNotMissed) {
    const LobbyProgram program = StartWith({"NOTIFY_SOCKET=/nonexistent"});
    const LobbyClient ann(program, "Ann");
}

} // namespace
} // namespace tarveth
