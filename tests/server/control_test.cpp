// Tests of the operator's control program against the lobby program.
#include "tests/platform/TempFolder.h"
#include "tests/server/ControlProgram.h"
#include "tests/server/LobbyProgram.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <filesystem>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarveth {
namespace {

struct Control : testing::Test {
    TempFolder folder;
    std::string socket = folder.File("control");
    std::string bans = folder.File("bans");
    std::vector<std::string> options = {"--control", socket, "--bans", bans};
    LobbyProgram program{options};

    std::string Do(const std::vector<std::string>& words) const { return RunControl(socket, words).output; }
};

// Connects to the socket; -1 if it may not.
int ConnectTo(const std::string& path) {
    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    if (connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return connection;
    close(connection);
    return -1;
}

// Gives what the process that runs the function returns.
template <class Act>
int ExitCodeOf(Act act) {
    const pid_t process = fork();
    if (process == 0)
        _exit(act());
    int status = 0;
    waitpid(process, &status, 0);
    return WEXITSTATUS(status);
}

TEST_F(Control, ListsWhoIsThereWithAddresses) {
    const LobbyClient ann(program, "Ann", 0, "127.0.0.2");
    const LobbyClient ren(program, "Ren\xE9", 0, "127.0.0.3");
    const std::string list = Do({"list"});
    EXPECT_NE(list.find("Ann       127.0.0.2  0:00:0"), std::string::npos) << list;
    EXPECT_NE(list.find("Ren\xC3\xA9      127.0.0.3  0:00:0"), std::string::npos) << list;
}

TEST_F(Control, KicksAUserWhoMayComeBack) {
    LobbyClient ann(program, "Ann");
    LobbyClient bob(program, "Bob");
    EXPECT_EQ(Do({"kick", "Ann", "--reason", "be kind"}), "Ann (127.0.0.1) has been put out\n");
    EXPECT_NE(ann.HearToTheEnd().find("\251alert(The operator has put you out of the lobby: be kind)"),
              std::string::npos);
    ann.Close();
    EXPECT_NE(bob.HearUntil("\251removenick(Ann)"), "");
    EXPECT_NE(program.LogLineWith("The operator: Ann (127.0.0.1) is put out: be kind"), "");
    EXPECT_NE(program.LogLineWith("Ann (127.0.0.1) has left: the operator has put it out: be kind"), "");
    const LobbyClient again(program, "Ann");
    EXPECT_NE(bob.HearUntil("\251addnick(Ann,0)"), "");
}

TEST_F(Control, ABanHoldsAfterARestart) {
    {
        LobbyClient ann(program, "Ann", 0, "127.0.0.2");
        EXPECT_EQ(Do({"ban", "Ann", "--reason", "spam"}),
                  "Ann (127.0.0.2) is banned until it is lifted; put out: 1\n");
        EXPECT_NE(ann.HearToTheEnd().find("\251alert(You are banned from this lobby: spam)"),
                  std::string::npos);
    }
    EXPECT_EQ(LobbyClient(program, 0, "127.0.0.2").HearToTheEnd(),
              "\251alert(You are banned from this lobby: spam)");
    EXPECT_NE(program.LogLineWith("127.0.0.2 was refused: You are banned from this lobby: spam"), "");
    program.Signal(SIGTERM);
    program.WaitForEnd();
    const LobbyProgram next(options);
    EXPECT_EQ(LobbyClient(next, 0, "127.0.0.2").HearToTheEnd(),
              "\251alert(You are banned from this lobby: spam)");
    LobbyClient elsewhere(next, 0, "127.0.0.3");
    elsewhere.Say("\251clientver(2.6.4)\251nick(ann)");
    EXPECT_NE(elsewhere.HearToTheEnd().find("\251alert(You are banned from this lobby: spam)"),
              std::string::npos);
    EXPECT_EQ(Do({"unban", "Ann"}), "Ann is no longer banned\n");
    EXPECT_NE(LobbyClient(next, 0, "127.0.0.2").HearUntil("\251update("), "");
}

TEST_F(Control, ABanWrittenIntoTheFileHoldsAfterTheSignal) {
    LobbyClient ann(program, "Ann", 0, "127.0.0.2");
    PutBytes(bans, "ban forever 127.0.0.2/31 - by hand\n");
    program.Signal(SIGHUP);
    EXPECT_NE(ann.HearToTheEnd().find("\251alert(You are banned from this lobby: by hand)"),
              std::string::npos);
    PutBytes(bans, "ban forever nowhere -\n");
    program.Signal(SIGHUP);
    EXPECT_NE(program.LogLineWith("stays as it is: " + bans + ", line 1: nowhere is neither"), "");
    EXPECT_NE(Do({"bans"}).find("127.0.0.2/31 is banned until it is lifted: by hand"), std::string::npos);
}

TEST_F(Control, AMutedUserIsNotHeard) {
    LobbyClient ann(program, "Ann");
    LobbyClient bob(program, "Bob", 0, "127.0.0.2");
    EXPECT_NE(
        Do({"mute", "Bob", "--for", "1h", "--reason", "shouting"}).find("Bob (127.0.0.2) is muted until 20"),
        std::string::npos);
    bob.Say("HELLO\r\n");
    EXPECT_NE(bob.HearUntil("\251sys(Your line was not passed on: you are muted until 20"), "");
    EXPECT_EQ(Do({"unmute", "Bob"}), "Bob is no longer muted\n");
    bob.Say("hello\r\n");
    EXPECT_EQ(ann.HearUntil("\r\n").find("HELLO"), std::string::npos);
}

TEST_F(Control, ABroadcastReachesAll) {
    LobbyClient ann(program, "Ann");
    EXPECT_EQ(Do({"broadcast", "We close at ten"}), "Told to 1 users\n");
    EXPECT_NE(ann.HearUntil("\251sys(We close at ten)"), "");
}

TEST_F(Control, FiguresGoIntoAFileAsAWhole) {
    const LobbyClient ann(program, "Ann");
    const std::string file = folder.File("tarveth-lobby.prom");
    EXPECT_EQ(Do({"figures", "--output", file}), "");
    EXPECT_NE(GetBytes(file).find("\ntarveth_lobby_users 1\n"), std::string::npos);
    EXPECT_EQ(GetBytes(file), Do({"figures"}));
}

TEST_F(Control, TellsWhetherTheLobbyServes) {
    EXPECT_EQ(RunControl(socket, {"health"}).exitCode, 0);
    program.Signal(SIGSTOP);
    const ControlRun stopped = RunControl(socket, {"--timeout", "1", "health"});
    EXPECT_EQ(stopped.exitCode, 1);
    EXPECT_EQ(stopped.output, "The lobby can't be reached at " + socket + ": it does not answer\n");
    program.Signal(SIGCONT);
    program.Signal(SIGTERM);
    program.WaitForEnd();
    const ControlRun gone = RunControl(socket, {"health"});
    EXPECT_EQ(gone.exitCode, 1);
    EXPECT_EQ(gone.output, "The lobby can't be reached at " + socket + ": No such file or directory\n");
}

TEST_F(Control, ARefusedRequestIsSaidAndFails) {
    const ControlRun run = RunControl(socket, {"kick", "Nobody"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "Nobody who is here is meant by Nobody\n");
    EXPECT_NE(RunControl(socket, {"ban", "Ann", "--for", "soon"}).exitCode, 0);
    EXPECT_NE(RunControl(socket, {}).exitCode, 0);
}

TEST_F(Control, TheSocketIsForItsOwnerAlone) {
    struct stat status {};
    ASSERT_EQ(stat(socket.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser can become another user";
    constexpr uid_t kSomebodyElse = 65534;
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
    const auto reach = [this] { return setuid(kSomebodyElse) == 0 && ConnectTo(socket) >= 0 ? 1 : 0; };
    EXPECT_EQ(ExitCodeOf(reach), 0);
    // Even where the file's permissions do not keep them away, the lobby says nothing to them.
    std::filesystem::permissions(socket, std::filesystem::perms(0666));
    const auto ask = [this] {
        const int connection = setuid(kSomebodyElse) == 0 ? ConnectTo(socket) : -1;
        char byte = 0;
        return connection >= 0 && recv(connection, &byte, 1, 0) <= 0 ? 2 : 3;
    };
    EXPECT_EQ(ExitCodeOf(ask), 2);
}

TEST_F(Control, RequestsWithoutAnEndHarmNobody) {
    const int silent = ConnectTo(socket);
    const int endless = ConnectTo(socket);
    const std::string garbage(100000, 'x');
    EXPECT_GT(send(endless, garbage.data(), garbage.size(), MSG_NOSIGNAL), 0);
    EXPECT_EQ(RunControl(socket, {"health"}).exitCode, 0);
    close(silent);
    close(endless);
    EXPECT_EQ(RunControl(socket, {"health"}).exitCode, 0);
}

TEST_F(Control, ASocketLeftByAKilledLobbyIsReplacedAndOneInUseIsNot) {
    EXPECT_THROW(LobbyProgram({"--control", socket}), std::runtime_error);
    EXPECT_EQ(RunControl(socket, {"health"}).exitCode, 0);
    program.Signal(SIGKILL);
    program.WaitForEnd();
    ASSERT_TRUE(std::filesystem::exists(socket));
    const LobbyProgram next({"--control", socket});
    EXPECT_EQ(RunControl(socket, {"health"}).exitCode, 0);
}

TEST_F(Control, AFileThatIsNoSocketIsLeftAlone) {
    const std::string file = folder.File("precious");
    PutBytes(file, "precious");
    EXPECT_THROW(LobbyProgram({"--control", file}), std::runtime_error);
    EXPECT_EQ(GetBytes(file), "precious");
}

} // namespace
} // namespace tarveth
