// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/statistics/comparison.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace orvanta::spectral {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

void ExpectNotComputable(const TestResult& result) {
    EXPECT_TRUE(std::isnan(result.t));
    EXPECT_TRUE(std::isnan(result.df));
    EXPECT_TRUE(std::isnan(result.p));
}

// 1, 2, 3 against 2, 4, 6: v = 1/3 and 4/3, t = −2/√(5/3), df = (5/3)²/(1/18 + 8/9) = 50/17.
TEST(WelchTest, TwoSmallSamples) {
    const TestResult result = WelchTest({2, 2, 3, 3}, {4, 8, 3, 3});
    EXPECT_DOUBLE_EQ(result.t, -2 / std::sqrt(5.0 / 3));
    EXPECT_DOUBLE_EQ(result.df, 50.0 / 17);
    EXPECT_NEAR(result.p, 0.22088084, 1e-8);
}

// Half as many effective epochs: v = m2/(N·(n_eff − 1)) = 20/(10·4) = 1/2 on both sides.
TEST(WelchTest, EffectiveNumbersEnterErrorAndDegrees) {
    const TestResult result = WelchTest({3, 20, 10, 5}, {1, 20, 10, 5});
    EXPECT_DOUBLE_EQ(result.t, 2.0);
    EXPECT_DOUBLE_EQ(result.df, 8.0);
}

TEST(WelchTest, EqualMeansGiveOne) {
    EXPECT_DOUBLE_EQ(WelchTest({5, 3, 4, 4}, {5, 7, 9, 9}).p, 1.0);
}

TEST(WelchTest, SwappingTheSidesTurnsTheSignOnly) {
    const TestResult one = WelchTest({1, 2, 9, 7.5}, {1.5, 3, 5, 4.5});
    const TestResult other = WelchTest({1.5, 3, 5, 4.5}, {1, 2, 9, 7.5});
    EXPECT_DOUBLE_EQ(one.t, -other.t);
    EXPECT_DOUBLE_EQ(one.p, other.p);
}

TEST(WelchTest, AConstantSideLeavesTheOtherSidesDegrees) {
    EXPECT_DOUBLE_EQ(WelchTest({1, 0, 50, 50}, {2, 6, 7, 7}).df, 6.0);
}

TEST(WelchTest, TinyVariancesDoNotUnderflow) {
    const TestResult result = WelchTest({3e-150, 20e-300, 10, 5}, {1e-150, 20e-300, 10, 5});
    EXPECT_NEAR(result.t, 2.0, 1e-9);
    EXPECT_NEAR(result.df, 8.0, 1e-9);
}

TEST(WelchTest, FarApartIsPracticallyImpossibleButNotBelowZero) {
    const TestResult result = WelchTest({1e9, 1, 1000, 1000}, {0, 1, 1000, 1000});
    EXPECT_GE(result.p, 0.0);
    EXPECT_LT(result.p, 1e-300);
}

TEST(WelchTest, OneEpochIsNotComputable) {
    ExpectNotComputable(WelchTest({1, 0, 1, 1}, {2, 6, 7, 7}));
    ExpectNotComputable(WelchTest({2, 6, 7, 7}, {1, 0, 1, 1}));
}

TEST(WelchTest, OneEffectiveEpochIsNotComputable) {
    ExpectNotComputable(WelchTest({1, 0.5, 2, 1}, {2, 6, 7, 7}));
}

TEST(WelchTest, NoSpreadOnBothSidesIsNotComputable) {
    ExpectNotComputable(WelchTest({1, 0, 5, 5}, {2, 0, 5, 5}));
}

TEST(WelchTest, AMomentThatIsNotFiniteIsNotComputable) {
    ExpectNotComputable(WelchTest({kNaN, 1, 5, 5}, {2, 1, 5, 5}));
    ExpectNotComputable(WelchTest({1, kNaN, 5, 5}, {2, 1, 5, 5}));
    ExpectNotComputable(WelchTest({-kInfinity, 1, 5, 5}, {2, 1, 5, 5}));
    ExpectNotComputable(WelchTest({1, 1, 5, kNaN}, {2, 1, 5, 5}));
}

// tanh(1/2) and 0 at n_eff = 9: biases cancel, z = 0.5/√(1/16 + 1/16) = √2; P(|Z| > √2) = 0.157299.
TEST(CoherenceTest, TwoCoherences) {
    const TestResult result = CoherenceTest(std::tanh(0.5), 9, 0, 9);
    EXPECT_NEAR(result.t, std::sqrt(2.0), 1e-14);
    EXPECT_NEAR(result.p, 0.157299, 1e-6);
    EXPECT_TRUE(std::isnan(result.df));
}

TEST(CoherenceTest, ThreeEffectiveEpochsAreTooFew) {
    ExpectNotComputable(CoherenceTest(0.5, 3, 0.5, 30));
    ExpectNotComputable(CoherenceTest(0.5, 30, 0.5, 3));
}

TEST(CoherenceTest, ACoherenceOfOneOrOutsideIsNotComputable) {
    ExpectNotComputable(CoherenceTest(1, 30, 0.5, 30));
    ExpectNotComputable(CoherenceTest(0.5, 30, -0.1, 30));
    ExpectNotComputable(CoherenceTest(0.5, 30, kNaN, 30));
}

TEST(Ratio, DividesAndLeavesOutWhatCannotBeDivided) {
    const std::vector<double> a = {6, 1, 0, kNaN, 1, kInfinity, 1, 1e300};
    const std::vector<double> b = {2, 0, 4, 1, kNaN, 1, kInfinity, 1e-300};
    const std::vector<double> ratio = Ratio(a, b);
    ASSERT_EQ(ratio.size(), 8u);
    EXPECT_EQ(ratio[0], 3.0);
    EXPECT_EQ(ratio[2], 0.0);
    for (const std::size_t i : {1u, 3u, 4u, 5u, 6u, 7u}) {
        EXPECT_TRUE(std::isnan(ratio[i])) << i;
    }
}

TEST(Ratio, SpectraOfDifferentLengthAreRefused) {
    EXPECT_THROW(Ratio(std::vector<double>(3), std::vector<double>(2)), std::invalid_argument);
}

} // namespace
} // namespace orvanta::spectral
