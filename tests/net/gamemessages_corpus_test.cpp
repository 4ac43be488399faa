// Replays what the fuzzer found interesting about the in-game messages.
#include "fuzz/gamemessages_property.h"
#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tarveth {
namespace {

TEST(GameMessagesCorpus, LeavesASoundGame) {
    int files = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/fuzz/corpus/gamemessages")) {
        EXPECT_EQ(GameMessagesFault(GetBytes(entry.path().string())), "") << entry.path();
        ++files;
    }
    EXPECT_GT(files, 3);
}

} // namespace
} // namespace tarveth
