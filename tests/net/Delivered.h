// Tests that are run twice: with what the server sends arriving at once, and byte by byte.
#pragma once

#include "tests/net/TestClient.h"

#include <gtest/gtest.h>

namespace tarveth::test {

class Delivered : public testing::TestWithParam<Delivery> {};

inline std::string DeliveryName(const testing::TestParamInfo<Delivery>& info) {
    return info.param == Delivery::Whole ? "Whole" : "Bytewise";
}

} // namespace tarveth::test

// Makes a suite of that name; its tests are TEST_P and begin with TestClient c(GetParam()).
#define TARVETH_DELIVERED(suite)                                                                             \
    class suite : public Delivered {};                                                                       \
    INSTANTIATE_TEST_SUITE_P(Server, suite, testing::Values(Delivery::Whole, Delivery::Bytewise),            \
                             DeliveryName)
