#include "text/trim.h"

#include <gtest/gtest.h>

namespace tarveth {
namespace {

TEST(Trim, TakesBlanksFromBothEndsOnly) {
    EXPECT_EQ(TrimBlanks("  a b "), "a b");
    EXPECT_EQ(TrimBlanks("   "), "");
    EXPECT_EQ(TrimBlanks(""), "");
    EXPECT_EQ(Trim("  a b "), "a b");
}

TEST(Trim, LeavesTabsAndLineEnds) {
    EXPECT_EQ(TrimBlanks(" \ta\r\n "), "\ta\r\n");
}

} // namespace
} // namespace tarveth
