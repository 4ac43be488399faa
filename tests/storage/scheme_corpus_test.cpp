// Runs the fuzz target's check on the files of its corpus.
#include "fuzz/scheme_property.h"

#include "tests/platform/TempFolder.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(SchemeCorpus, EveryFileGivesSixNamesThatReadBack) {
    const TempFolder folder;
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/fuzz/corpus/scheme")) {
        EXPECT_EQ(SchemeFault(GetBytes(entry.path().string()), folder.File("scheme.tps")), "")
            << entry.path();
        ++files;
    }
    EXPECT_GT(files, 7);
}

} // namespace
} // namespace tarveth
