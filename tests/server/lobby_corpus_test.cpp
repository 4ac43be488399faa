// Replays the inputs that fuzzing has collected.
#include "fuzz/lobby_property.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarveth {
namespace {

TEST(LobbyCorpus, EveryPlayKeepsTheLobbyInOrder) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/fuzz/corpus/lobby")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(LobbyPlay(bytes).Fault(), "") << entry.path();
        ++files;
    }
    EXPECT_GT(files, 10);
}

} // namespace
} // namespace tarveth
