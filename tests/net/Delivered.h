// Tests that are run twice: with what the server sends arriving at once, and byte by byte.
#pragma once

#include "tests/net/TestClient.h"

#include <gtest/gtest.h>

namespace tarveth::test {

// A suite of such tests is a class of it, instantiated for kDeliveries.
class Delivered : public testing::TestWithParam<Delivery> {};

inline const auto kDeliveries = testing::Values(Delivery::Whole, Delivery::Bytewise);

inline std::string DeliveryName(const testing::TestParamInfo<Delivery>& info) {
    return info.param == Delivery::Whole ? "Whole" : "Bytewise";
}

} // namespace tarveth::test
