// Tests of the program from outside: its command line, its signals, its log.
#include "tests/server/LobbyProgram.h"

#include "version.h"

#include <gtest/gtest.h>

#include <csignal>

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
    EXPECT_NE(program.LogLine().find("2 connections, 2 users, 1 games; 2 arrivals"), std::string::npos);
}

TEST(LobbyProgram, TellsTheMessageOfTheDay) {
    const LobbyProgram program({"--message-of-the-day", "Be kind"});
    LobbyClient ann(program, "Ann");
    EXPECT_NE(ann.HearUntil("\251sys(Be kind)"), "");
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
    for (const char* option : {"--no-such-option", "--bind=nowhere", "--port=70000", "--oldest-client=new"}) {
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
