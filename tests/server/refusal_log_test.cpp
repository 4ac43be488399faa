// Tests of how many refused connections the log names.
#include "server/RefusalLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarveth {
namespace {

using namespace std::chrono_literals;

struct Refusals : testing::Test {
    std::vector<std::string> lines;
    RefusalLog log{[this](const std::string& line) { lines.push_back(line); }};
    Time now = Time{} + 1h;
    ClientAddress address{{0x20, 1, 0xD, 0xB8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 7}};

    void Refuse(int times) {
        for (int i = 0; i < times; ++i)
            log.Tell(address, "The lobby is full.", now);
    }
};

TEST_F(Refusals, EachIsNamedWhileThereAreFew) {
    for (int second = 0; second < 1000; ++second, now += 1s)
        Refuse(10);
    EXPECT_EQ(lines, std::vector<std::string>(10000, "2001:db8::7 was refused: The lobby is full."));
}

TEST_F(Refusals, OfAFloodAPartIsNamedAndTheOthersAreCounted) {
    Refuse(5000);
    EXPECT_EQ(lines.size(), 100U);
    lines.clear();
    now += 1s;
    Refuse(1);
    EXPECT_EQ(lines, (std::vector<std::string>{"4900 more connections were refused",
                                               "2001:db8::7 was refused: The lobby is full."}));
}

} // namespace
} // namespace tarveth
