// Tests of what is announced to everybody, which the running lobby sends a few users at a time.
#include "tests/server/LobbyProgram.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tarveth {
namespace {

constexpr int kLines = 60;

std::string Line(int number) {
    return "Speaker: line " + std::to_string(number) + "\r\n";
}

// The listener's part of what was announced: the lines as they came.
std::string LinesIn(const std::string& heard) {
    std::string lines;
    for (std::size_t at = heard.find("Speaker: "); at != std::string::npos;
         at = heard.find("Speaker: ", at + 1))
        lines += heard.substr(at, heard.find('\n', at) + 1 - at);
    return lines;
}

struct Announcements : testing::Test {
    LobbyProgram program{{"--chat-lines", "0", "--chat-characters", "0", "--message-of-the-day", ""}};
    LobbyClient speaker{program, "Speaker"};
    std::vector<std::unique_ptr<LobbyClient>> listeners;
    std::string allLines;

    Announcements() {
        for (int i = 0; i < 50; ++i)
            listeners.push_back(std::make_unique<LobbyClient>(program, "Listener" + std::to_string(i)));
        for (int i = 0; i < kLines; ++i)
            allLines += Line(i);
    }
};

// Each line begins to be sent while the one before is, and users leave and come between them.
TEST_F(Announcements, ReachEverybodyOnceAndInOrderWhileOthersComeAndGo) {
    std::vector<std::unique_ptr<LobbyClient>> others;
    for (int i = 0; i < kLines; ++i) {
        speaker.Say("line " + std::to_string(i) + "\r\n");
        others.push_back(std::make_unique<LobbyClient>(program, "Other" + std::to_string(i)));
        if (i % 2 == 1)
            others[static_cast<std::size_t>(i / 2)]->Abort();
    }
    for (const auto& listener : listeners)
        EXPECT_EQ(LinesIn(listener->HearUntil(Line(kLines - 1))), allLines);
}

// A message to one user must not come before the announcements that were made before it.
TEST_F(Announcements, AreNotOvertakenByMessagesToOneUser) {
    StartGame(*listeners[0], "Listener0", *listeners[1], "Listener1");
    std::string expected;
    for (int i = 0; i < kLines; ++i) {
        speaker.Say("line " + std::to_string(i) + "\r\n");
        EXPECT_NE(speaker.HearUntil(Line(i)), "");
        listeners[0]->Say("\251play(Listener1,M(" + std::to_string(i) + "))");
        expected += Line(i) + "\251play(Listener1,M(" + std::to_string(i) + "))";
    }
    const std::string heard = listeners[1]->HearUntil("M(" + std::to_string(kLines - 1) + "))");
    EXPECT_EQ(heard.substr(heard.find("Speaker: ")), expected);
}

} // namespace
} // namespace tarveth
