// Runs the fuzz target's check on the files of its corpus.
#include "fuzz/notation_property.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(NotationCorpus, EveryLineIsRefusedAtAPlaceOrWrittenAgainAsItIs) {
    int files = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/fuzz/corpus/notation")) {
        EXPECT_EQ(NotationFaultOf(GetBytes(entry.path().string())), "") << entry.path();
        ++files;
    }
    EXPECT_GT(files, 8);
}

} // namespace
} // namespace tarveth
