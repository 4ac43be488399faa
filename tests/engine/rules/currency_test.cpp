// The fixed-point number in which squares are kept.
#include "engine/rules/Currency.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tarveth {
namespace {

Currency Quarters(int count) {
    return Currency::FromRaw(std::int64_t{count} * Currency::kScale / 4);
}

TEST(Currency, AHalfRoundsToTheEvenNumber) {
    EXPECT_EQ(Quarters(2).ToInt16(), 0);  // 0.5
    EXPECT_EQ(Quarters(6).ToInt16(), 2);  // 1.5
    EXPECT_EQ(Quarters(10).ToInt16(), 2); // 2.5
    EXPECT_EQ(Quarters(14).ToInt16(), 4); // 3.5
}

TEST(Currency, ANegativeHalfRoundsToTheEvenNumberToo) {
    EXPECT_EQ(Quarters(-2).ToInt16(), 0);
    EXPECT_EQ(Quarters(-6).ToInt16(), -2);
    EXPECT_EQ(Quarters(-10).ToInt16(), -2);
    EXPECT_EQ(Quarters(-14).ToInt16(), -4);
}

TEST(Currency, BesideTheHalfTheNearerNumberWins) {
    EXPECT_EQ(Currency::FromRaw(24'999).ToInt16(), 2);
    EXPECT_EQ(Currency::FromRaw(25'001).ToInt16(), 3);
    EXPECT_EQ(Currency::FromRaw(-24'999).ToInt16(), -2);
    EXPECT_EQ(Currency::FromRaw(-25'001).ToInt16(), -3);
    EXPECT_EQ(Currency::FromRaw(-1).ToInt16(), 0);
}

TEST(Currency, WholeNumbersComeBackAsTheyWere) {
    for (const int whole : {-8, -1, 0, 1, 8, 32'767, -32'768})
        EXPECT_EQ(Currency(whole).ToInt16(), whole);
}

TEST(Currency, WhatDoesNotFitSixteenBitsIsRefusedInsteadOfWrapped) {
    EXPECT_THROW(Currency(32'768).ToInt16(), std::out_of_range);
    EXPECT_THROW(Currency(-32'769).ToInt16(), std::out_of_range);
    EXPECT_THROW(Currency(65'537).ToInt16(), std::out_of_range);
    EXPECT_THROW(Currency::FromRaw(327'675'000).ToInt16(), std::out_of_range); // 32767.5 goes up
    EXPECT_EQ(Currency::FromRaw(-327'685'000).ToInt16(), -32'768);             // -32768.5 to the even one
}

TEST(Currency, QuarterStepsLandExactlyOnTheSquare) {
    Currency x = 1;
    for (int step = 0; step < 28; ++step) {
        EXPECT_NE(x, Currency(8));
        x += Quarters(1);
    }
    EXPECT_EQ(x, Currency(8));
    for (int step = 0; step < 28; ++step)
        x += Quarters(-1);
    EXPECT_EQ(x, Currency(1));
}

TEST(Currency, AWholeNumberComparesWithItByValue) {
    EXPECT_TRUE(Currency(4) == 4);
    EXPECT_FALSE(Quarters(17) == 4);
    EXPECT_TRUE(Quarters(17) > 4);
    EXPECT_TRUE(Quarters(15) < 4);
    EXPECT_TRUE(-Currency(4) == -4);
    EXPECT_TRUE(Currency(5) - Currency(8) == -3);
}

TEST(Currency, KeepsFourDecimals) {
    EXPECT_EQ(Currency(3).Raw(), 30'000);
    EXPECT_DOUBLE_EQ(Currency::FromRaw(-12'345).ToDouble(), -1.2345);
}

} // namespace
} // namespace tarveth
