// Tests of the program from outside: its command line, its signals, its log.
#include "tests/server/LobbyProgram.h"

#include "tests/platform/TempFolder.h"
#include "version.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <utility>

#include <unistd.h>

namespace tarveth {
namespace {

TEST(LobbyProgram, TellsItsVersionFirst) {
    const LobbyProgram program;
    LobbyClient client(program);
    EXPECT_EQ(client.HearUntil(")"), std::string("\251update(") + kVersion + ")");
}

TEST(LobbyProgram, EndsCleanlyAndTellsEverybody) {
    for (const int signal : {SIGINT, SIGTERM}) {
        LobbyProgram program;
        LobbyClient ann(program, "Ann");
        LobbyClient unnamed(program);
        unnamed.HearUntil("\251update(");
        program.Signal(signal);
        EXPECT_NE(ann.HearToTheEnd().find("\251sys(The lobby is closing. Please come back later.)"),
                  std::string::npos);
        EXPECT_NE(unnamed.HearToTheEnd().find("\251sys(The lobby is closing."), std::string::npos);
        ann.Close();
        unnamed.Close();
        EXPECT_EQ(program.WaitForEnd(), 0);
    }
}

TEST(LobbyProgram, EndsEvenIfAClientStaysConnected) {
    LobbyProgram program;
    const LobbyClient ann(program, "Ann");
    program.Signal(SIGTERM);
    EXPECT_EQ(program.WaitForEnd(), 0);
}

TEST(LobbyProgram, LogsItsFiguresWhenAsked) {
    LobbyProgram program;
    LobbyClient ann(program, "Ann");
    LobbyClient bob(program, "Bob");
    StartGame(ann, "Ann", bob, "Bob");
    program.Signal(SIGUSR1);
    EXPECT_NE(program.LogLineWith("2 connections, 2 users, 1 games; 2 arrivals"), "");
}

TEST(LobbyProgram, LogsWhoComesAndGoesAndWhyButNoPrivateText) {
    LobbyProgram program({"--exempt-loopback=false", "--per-address", "2"});
    LobbyClient ann(program, "Ren\xE9");
    EXPECT_NE(program.LogLineWith("127.0.0.1 has connected"), "");
    EXPECT_NE(program.LogLineWith("127.0.0.1 is here as Ren\xC3\xA9"), "");
    LobbyClient bob(program, "Bob");
    LobbyClient(program).HearToTheEnd();
    EXPECT_NE(program.LogLineWith("127.0.0.1 was refused: There are too many connections"), "");
    StartGame(ann, "Ren\xE9", bob, "Bob");
    ann.Say("\251play(Bob,X(secret))");
    bob.HearUntil("secret");
    bob.Close();
    const std::string line = program.LogLineWith("Bob");
    EXPECT_NE(line.find("Bob (127.0.0.1) has left: it closed the connection"), std::string::npos) << line;
    program.Signal(SIGTERM);
    EXPECT_EQ(program.LogLineWith("secret"), "");
}

TEST(LobbyProgram, ALogThatNobodyReadsStopsNothing) {
    constexpr int kMoreThanAPipeHolds = 1500; // clients, of two lines each
    const LobbyProgram program;
    LobbyClient ann(program, "Ann");
    for (int i = 0; i < kMoreThanAPipeHolds; ++i)
        LobbyClient(program).Abort();
    const LobbyClient bob(program, "Bob");
    ann.Say("hello\n");
    EXPECT_NE(ann.HearUntil("Ann: hello"), "");
}

TEST(LobbyProgram, TellsTheMessageOfTheDay) {
    const LobbyProgram program({"--message-of-the-day", "Be kind"});
    LobbyClient ann(program, "Ann");
    EXPECT_NE(ann.HearUntil("\251sys(Be kind)"), "");
}

// A file that goes with the test.
class TestFile {
public:
    explicit TestFile(const std::string& text) { Write(text); }

    void Write(const std::string& text) const { std::ofstream(path_, std::ios::binary) << text; }
    const std::string& Path() const { return path_; }

private:
    TempFolder folder_;
    std::string path_ = folder_.File("file");
};

TEST(LobbyProgram, ShowsTheFileOfTheDayInTheClientsCodePage) {
    const TestFile file("Le caf\xC3\xA9\nis open\n");
    const LobbyProgram program({"--message-of-the-day-file", file.Path()});
    LobbyClient ann(program, "Ann");
    EXPECT_NE(ann.HearUntil("\251sys(Le caf\xE9)\251sys(is open)"), "");
}

TEST(LobbyProgram, TakesOptionsFromAFileAndTheCommandLineWins) {
    const TestFile file("# The lobby\n\nmax-clients = 1\nmessage-of-the-day = \"Hello # you\"\n");
    const LobbyProgram program({"--config", file.Path()});
    LobbyClient ann(program, "Ann");
    EXPECT_NE(ann.HearUntil("\251sys(Hello # you)"), "");
    EXPECT_EQ(LobbyClient(program).HearToTheEnd(), "\251alert(The lobby is full. Please try again later.)");
    const LobbyProgram larger({"--config", file.Path(), "--max-clients", "2"});
    LobbyClient bob(larger, "Bob");
    EXPECT_NE(LobbyClient(larger).HearUntil("\251update("), "");
}

TEST(LobbyProgram, ShippedConfigurationIsTaken) {
    const LobbyProgram program(
        {"--config", TARVETH_SOURCE_DIR "/packaging/lobby/tarveth-lobby.conf", "--bind", "127.0.0.1"});
    LobbyClient ann(program, "Ann");
}

TEST(LobbyProgram, TellsLineAndReasonOfABadFile) {
    const std::vector<std::pair<std::string, std::string>> filesAndReasons = {
        {"port = 1\nhandshake = 0\n", ", line 2: "},
        {"\n#\nport\n", ", line 3: "},
        {"no-such = 1\n", ", line 1: "}};
    for (const auto& [text, reason] : filesAndReasons) {
        const TestFile file(text);
        try {
            const LobbyProgram program({"--config", file.Path()});
            FAIL() << text;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(file.Path() + reason), std::string::npos)
                << error.what();
        }
    }
}

TEST(LobbyProgram, ReadsItsFilesAgainWithoutDroppingAnybody) {
    const TestFile file("message-of-the-day = One\n");
    LobbyProgram program({"--config", file.Path()});
    LobbyClient ann(program, "Ann");
    LobbyClient bob(program, "Bob");
    StartGame(ann, "Ann", bob, "Bob");
    file.Write("message-of-the-day = Two\nhandshake = 0\n");
    program.Signal(SIGHUP);
    EXPECT_NE(program.LogLineWith("stays as it is: " + file.Path() + ", line 2: "), "");
    EXPECT_NE(LobbyClient(program, "Cid").HearUntil("\251sys(One)"), "");
    file.Write("message-of-the-day = Two\n");
    program.Signal(SIGHUP);
    EXPECT_NE(program.LogLineWith("read again"), "");
    EXPECT_NE(LobbyClient(program, "Dan").HearUntil("\251sys(Two)"), "");
    ann.Say("\251play(Bob,M(1, 1))");
    EXPECT_NE(bob.HearUntil("\251play(Bob,M(1, 1))"), "");
}

TEST(LobbyProgram, RefusesClientsWhenItIsFullAndAcceptsTheNextOneLater) {
    const LobbyProgram program({"--max-clients", "2"});
    LobbyClient ann(program, "Ann");
    LobbyClient bob(program, "Bob");
    LobbyClient cid(program);
    EXPECT_EQ(cid.HearToTheEnd(), "\251alert(The lobby is full. Please try again later.)");
    ann.Close();
    bob.HearUntil("\251removenick(Ann)");
    const LobbyClient dan(program, "Dan");
    EXPECT_NE(bob.HearUntil("\251addnick(Dan,0)"), "");
}

TEST(LobbyProgram, DismissesSilentClientsAndOldVersions) {
    const LobbyProgram program({"--handshake", "0.2", "--oldest-client", "2.6.0"});
    LobbyClient silent(program);
    EXPECT_NE(silent.HearToTheEnd().find("\251sys(You took too long to say who you are.)"),
              std::string::npos);
    LobbyClient old(program);
    old.Say("\251clientver(2.5.9)\251nick(Ann)\251sendnicks()");
    EXPECT_NE(old.HearToTheEnd().find("\251oldver()"), std::string::npos);
}

TEST(LobbyProgram, RefusesACommandLineThatItCanNotFollow) {
    for (const char* option :
         {"--no-such-option", "--bind=nowhere", "--port=70000", "--oldest-client=new", "--handshake=0",
          "--messages=0.5", "--messages=2", "--chat-lines=nan", "--max-clients=-1", "--max-clients=0",
          "--chat-burst=0", "--memory=1000", "--unsent-bytes=0", "--chat-lines=inf", "--config=/nonexistent",
          "--useless-bytes=100", "--message-of-the-day-file=/nonexistent", "--bans=/nonexistent/bans"}) {
        EXPECT_THROW(LobbyProgram({option}), std::runtime_error) << option;
    }
}

TEST(LobbyProgram, ReportsAPortThatIsTaken) {
    const LobbyProgram program;
    const std::string port = std::to_string(program.Port());
    try {
        const LobbyProgram second({"--port", port});
        FAIL();
    } catch (const std::runtime_error& error) {
        const std::string said = error.what();
        EXPECT_NE(said.find("The lobby can't run on 127.0.0.1, port " + port + ": bind: "), std::string::npos)
            << said;
    }
}

} // namespace
} // namespace tarveth
