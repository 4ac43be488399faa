// Attacks on the memory of the program over real sockets: clients that do not read what they are sent.
#include "tests/server/LobbyProgram.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace tarveth {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kMiB = std::size_t{1} << 20;
constexpr int kSmallBuffer = 4096;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitized = true; // the sanitizer keeps freed memory, and needs much address space
#else
constexpr bool kSanitized = false;
#endif

struct Memory : testing::Test {
    void SetUp() override {
        if (kSanitized)
            GTEST_SKIP();
    }

    // Sends lines to all until one that does not read has been dropped; gives the largest resident size
    // meanwhile.
    static std::size_t FloodUntilOneIsDropped(LobbyProgram& program, LobbyClient& speaker) {
        constexpr int kMoreThanBuffersHold = 20000;
        const std::string line = std::string(30000, 'x') + "\n";
        std::size_t peak = 0;
        for (int i = 0; i < kMoreThanBuffersHold; ++i) {
            speaker.Say(line);
            const std::string heard = speaker.HearUntil("x\r\n");
            peak = std::max(peak, program.ResidentBytes());
            if (heard.empty() || heard.find("\251removenick(Deaf") != std::string::npos)
                return peak;
        }
        ADD_FAILURE() << "nobody was dropped";
        return peak;
    }

    static std::vector<LobbyClient> DeafClients(const LobbyProgram& program, int count) {
        std::vector<LobbyClient> clients;
        clients.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            clients.emplace_back(program, "Deaf " + std::to_string(i), kSmallBuffer);
        return clients;
    }
};

TEST_F(Memory, OfAllClientsIsLimitedAndReturnedToTheSystem) {
    LobbyProgram program(
        {"--memory", "24MiB", "--unsent-bytes", "100000000", "--chat-lines", "0", "--chat-characters", "0"});
    LobbyClient speaker(program, "Speaker");
    const std::size_t before = program.ResidentBytes();
    {
        const std::vector<LobbyClient> deaf = DeafClients(program, 8);
        const std::size_t peak = FloodUntilOneIsDropped(program, speaker);
        EXPECT_GT(peak, before + 12 * kMiB);
        EXPECT_LT(peak, before + 40 * kMiB);
        EXPECT_NE(program.LogLineWith("has left: the memory for all clients is full"), "");
    }
    speaker.Say("still here\r\n");
    EXPECT_NE(speaker.HearUntil("still here"), "");
    const auto end = std::chrono::steady_clock::now() + 60s;
    while (program.ResidentBytes() > before + 6 * kMiB && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(100ms);
    EXPECT_LT(program.ResidentBytes(), before + 6 * kMiB);
}

TEST_F(Memory, RunningOutCostsTheSlowestClientsAndNotTheLobby) {
    LobbyProgram program({"prlimit", "--as=" + std::to_string(80 * kMiB), LOBBY_PROGRAM},
                         {"--memory", "10GiB", "--unsent-bytes", "10000000000", "--chat-lines", "0",
                          "--chat-characters", "0"});
    LobbyClient speaker(program, "Speaker");
    const std::vector<LobbyClient> deaf = DeafClients(program, 8);
    FloodUntilOneIsDropped(program, speaker);
    EXPECT_NE(program.LogLineWith("Memory has run out"), "");
    speaker.Say("still here\r\n");
    EXPECT_NE(speaker.HearUntil("still here"), "");
    LobbyClient late(program, "Late");
    late.Say("me too\r\n");
    EXPECT_NE(speaker.HearUntil("Late: me too"), "");
}

} // namespace
} // namespace tarveth
