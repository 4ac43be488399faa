// The main function of the window tests: all tests of a run share one desktop.

#include "tests/window/Desktop.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    const tarveth::harness::Desktop desktop;
    return RUN_ALL_TESTS();
}
