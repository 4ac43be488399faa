// Runs the fuzz target's check on the files of its corpus.
#include "fuzz/bitmap_property.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(BitmapCorpus, EveryFileIsRefusedOrReadsBackAsItIsWritten) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/fuzz/corpus/bitmap")) {
        const std::string bytes = GetBytes(entry.path().string());
        EXPECT_EQ(BitmapFault({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}), "")
            << entry.path();
        ++files;
    }
    EXPECT_GT(files, 12);
}

} // namespace
} // namespace tarveth
