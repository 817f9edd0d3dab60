// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/statistics/regression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <vector>

namespace orvanta::spectral {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

Line Fit(const std::vector<double>& x, const std::vector<double>& y) {
    return FitLine(x, y);
}

// Means 2 and 4; sums of products of deviations: xx = 1 + 0 + 1, xy = 2 + 0 + 1, yy = 4 + 1 + 1.
TEST(FitLine, ThreePoints) {
    const Line line = Fit({1, 2, 3}, {2, 5, 5});
    EXPECT_DOUBLE_EQ(line.slope, 1.5);
    EXPECT_DOUBLE_EQ(line.intercept, 1.0);
    EXPECT_DOUBLE_EQ(line.r, 3 / std::sqrt(12.0));
    EXPECT_EQ(line.count, 3u);
}

TEST(FitLine, AFallingLineCorrelatesWithMinusOne) {
    const Line line = Fit({0, 1, 2}, {4, 2, 0});
    EXPECT_DOUBLE_EQ(line.r, -1.0);
    EXPECT_DOUBLE_EQ(line.slope, -2.0);
    EXPECT_DOUBLE_EQ(line.intercept, 4.0);
}

TEST(FitLine, ALargeOffsetCostsNoDigits) {
    const Line line = Fit({1e9 + 1, 1e9 + 2, 1e9 + 3}, {1e9 + 2, 1e9 + 5, 1e9 + 5});
    EXPECT_DOUBLE_EQ(line.slope, 1.5);
    EXPECT_DOUBLE_EQ(line.r, 3 / std::sqrt(12.0));
}

TEST(FitLine, PairsThatAreNotFiniteAreLeftOut) {
    const double infinity = std::numeric_limits<double>::infinity();
    const Line line = Fit({1, kNaN, 2, 7, 3, -infinity}, {2, 9, 5, kNaN, 5, 1});
    EXPECT_DOUBLE_EQ(line.slope, 1.5);
    EXPECT_EQ(line.count, 3u);
}

TEST(FitLine, FewerThanTwoPairsAreNoLine) {
    for (const Line& line : {Fit({}, {}), Fit({1}, {2}), Fit({1, kNaN}, {2, 3})}) {
        EXPECT_TRUE(std::isnan(line.r) && std::isnan(line.slope) && std::isnan(line.intercept));
    }
    EXPECT_EQ(Fit({1}, {2}).count, 1u);
}

// Three times 0.1 does not average to 0.1 exactly, which must not pass for spread.
TEST(FitLine, NoSpreadInXIsNoLine) {
    const Line line = Fit({0.1, 0.1, 0.1}, {1, 2, 3});
    EXPECT_TRUE(std::isnan(line.r) && std::isnan(line.slope) && std::isnan(line.intercept));
    EXPECT_EQ(line.count, 3u);
}

TEST(FitLine, NoSpreadInYIsALevelLineWithoutCorrelation) {
    const Line line = Fit({1, 2, 3}, {0.1, 0.1, 0.1});
    EXPECT_EQ(line.slope, 0.0);
    EXPECT_DOUBLE_EQ(line.intercept, 0.1);
    EXPECT_TRUE(std::isnan(line.r));
}

TEST(FitLine, DifferentLengthsAreRefused) {
    EXPECT_THROW(Fit({1, 2}, {1}), std::invalid_argument);
}

} // namespace
} // namespace orvanta::spectral
