// The Windows program, run by Wine, and clients of this system.
#include "tests/server/LobbyProgram.h"
#include "tests/window/Process.h"
#include "tests/window/Wine.h"

#include "version.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace tarveth {
namespace {

std::vector<std::string> CommandUnderWine() {
    std::vector<std::string> command = {"env"};
    for (const auto& [name, value] : harness::WineEnvironment())
        command.emplace_back(name).append("=").append(value);
    command.insert(command.end(), {WINE, LOBBY_PROGRAM});
    return command;
}

struct WindowsLobby : testing::Test {
    WindowsLobby() { static const harness::Wine allTheTime; }

    static LobbyProgram Start(const std::vector<std::string>& options = {}) {
        return {CommandUnderWine(), options};
    }
};

struct Outcome {
    std::optional<int> exitCode;
    std::string output;
};

Outcome RunToItsEnd(const std::vector<std::string>& options) {
    const std::string output = WINE_PREFIX ".lobby.log";
    std::filesystem::remove(output);
    std::vector<std::string> command = CommandUnderWine();
    command.insert(command.end(), options.begin(), options.end());
    harness::Process process({.command = command, .output = output});
    const std::optional<int> exitCode = process.WaitForExit();
    std::ifstream bytes(output, std::ios::binary);
    return {exitCode, {std::istreambuf_iterator<char>(bytes), {}}};
}

TEST_F(WindowsLobby, TellsItsVersionFirst) {
    const LobbyProgram program = Start();
    LobbyClient client(program);
    EXPECT_EQ(client.HearUntil(")"), std::string("\251update(") + kVersion + ")");
}

TEST_F(WindowsLobby, TellsEverybodyWhoIsThere) {
    const LobbyProgram program = Start();
    LobbyClient ann(program, "Ann");
    LobbyClient bob(program);
    bob.Say("\251clientver(2.6.4)\251nick(Bob)\251sendnicks()");
    EXPECT_NE(bob.HearUntil("\251addnick(Ann,0)"), "");
    EXPECT_NE(bob.HearUntil("\251addnick(Bob,0)"), "");
    EXPECT_NE(ann.HearUntil("\251addnick(Bob,0)"), "");
    bob.Close();
    EXPECT_NE(ann.HearUntil("\251removenick(Bob)"), "");
}

TEST_F(WindowsLobby, PassesChatOn) {
    const LobbyProgram program = Start();
    LobbyClient ann(program, "Ann");
    LobbyClient bob(program, "Bob");
    ann.Say("hello\r\n");
    EXPECT_NE(bob.HearUntil("Ann: hello\r\n"), "");
    EXPECT_NE(ann.HearUntil("Ann: hello\r\n"), "");
}

TEST_F(WindowsLobby, PassesAGameOnUpToItsEnd) {
    const LobbyProgram program = Start();
    LobbyClient ann(program, "Ann");
    LobbyClient bob(program, "Bob");
    StartGame(ann, "Ann", bob, "Bob");
    for (const std::string number : {"1", "2", "3"}) {
        ann.Say("\251play(Bob,M(" + number + ", 1))");
        EXPECT_NE(bob.HearUntil("\251play(Bob,M(" + number + ", 1))"), "");
        bob.Say("\251play(Ann,M(" + number + ", 2))");
        EXPECT_NE(ann.HearUntil("\251play(Ann,M(" + number + ", 2))"), "");
    }
    ann.Say("\251end(Bob,Ann)");
    EXPECT_NE(bob.HearUntil("\251end(Bob,Ann)"), "");
    EXPECT_NE(bob.HearUntil("\251changenick(Bob,Bob,0)"), "");
}

TEST_F(WindowsLobby, TellsTheMessageOfTheDay) {
    const LobbyProgram program = Start({"--message-of-the-day", "Be kind"});
    LobbyClient ann(program, "Ann");
    EXPECT_NE(ann.HearUntil("\251sys(Be kind)"), "");
}

TEST_F(WindowsLobby, EndsCleanlyOnCtrlCAndTellsEverybody) {
    LobbyProgram program = Start();
    LobbyClient ann(program, "Ann");
    program.Signal(SIGINT); // of which Wine makes a Ctrl+C
    EXPECT_NE(ann.HearToTheEnd().find("\251sys(The lobby is closing. Please come back later.)"),
              std::string::npos);
    ann.Close();
    EXPECT_EQ(program.WaitForEnd(), 0);
}

TEST_F(WindowsLobby, APortThatIsTakenIsAnErrorThatIsSaid) {
    const LobbyProgram program = Start();
    const std::string port = std::to_string(program.Port());
    const Outcome second = RunToItsEnd({"--port", port});
    EXPECT_EQ(second.exitCode, 1);
    EXPECT_NE(second.output.find("error: The lobby can't run on 127.0.0.1, port " + port + ": bind: "),
              std::string::npos)
        << second.output;
}

TEST_F(WindowsLobby, HasNoControlSocketAndSaysSo) {
    const Outcome refused = RunToItsEnd({"--port", "0", "--control", "control"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_NE(refused.output.find("--control is not available on Windows"), std::string::npos)
        << refused.output;
}

TEST_F(WindowsLobby, ExplainsItsOptions) {
    const Outcome help = RunToItsEnd({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_NE(help.output.find("Usage: tarveth-lobby [OPTIONS]"), std::string::npos) << help.output;
}

} // namespace
} // namespace tarveth
