// Runs the fuzz target's check on the files of its corpus.
#include "fuzz/replay_property.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(ReplayCorpus, EveryGameGivesSoundPositionsUpToItsOwn) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/fuzz/corpus/replay")) {
        EXPECT_EQ(ReplayFault(GetBytes(entry.path().string())), "") << entry.path();
        ++files;
    }
    EXPECT_GT(files, 8);
}

} // namespace
} // namespace tarveth
