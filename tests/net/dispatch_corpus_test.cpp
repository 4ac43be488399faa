// Replays what fuzzing found interesting.
#include "fuzz/dispatch_property.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarveth::test {
namespace {

TEST(DispatchCorpus, WhateverAServerSendsTheGameStaysSound) {
    int files = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(TARVETH_SOURCE_DIR "/fuzz/corpus/dispatch")) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(DispatchPlay(bytes).Fault(), "") << entry.path();
        ++files;
    }
    EXPECT_GT(files, 10);
}

} // namespace
} // namespace tarveth::test
