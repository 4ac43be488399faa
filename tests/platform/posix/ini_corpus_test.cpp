// Runs the fuzz target's check on the files of its corpus.
#include "fuzz/ini_property.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(IniCorpus, EveryFileReadsBackWhatIsWrittenIntoIt) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/fuzz/corpus/ini")) {
        EXPECT_EQ(IniFault(GetBytes(entry.path().string())), "") << entry.path();
        ++files;
    }
    EXPECT_GT(files, 10);
}

} // namespace
} // namespace tarveth
