#include "text/foldcase.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(FoldCase, KnowsTheAccentedLettersOfTheCodePage) {
    EXPECT_EQ(FoldCase("ANN @[ \xC4\xD6\xDC\x8A\x8C\x8E\x9F"), "ann @[ \xE4\xF6\xFC\x9A\x9C\x9E\xFF");
}

TEST(FoldCase, LeavesSignsThatAreNoLettersAndLettersWithoutALargeOne) {
    EXPECT_EQ(FoldCase("\xD7\xDF\xF7"), "\xD7\xDF\xF7");
}

TEST(FoldAscii, LeavesAllBytesButTheLettersAToZ) {
    EXPECT_EQ(FoldAscii("A/Z @[`{ \xC3\x84\xD7\x8A"), "a/z @[`{ \xC3\x84\xD7\x8A");
}

} // namespace
} // namespace tarveth
