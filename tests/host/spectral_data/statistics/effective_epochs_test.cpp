// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/statistics/comparison.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace orvanta::spectral {
namespace {

const std::vector<double> kRectangle(4, 1.0);
// Periodic Hanning over 4 samples.
const std::vector<double> kHanning = {0, 0.5, 1, 0.5};

std::vector<std::int64_t> Every(std::int64_t step, std::size_t count) {
    std::vector<std::int64_t> starts(count);
    for (std::size_t i = 0; i < count; ++i) {
        starts[i] = static_cast<std::int64_t>(i) * step;
    }
    return starts;
}

TEST(EffectiveEpochs, NoEpochIsWorthNothing) {
    EXPECT_EQ(EffectiveEpochs({}, kRectangle), 0.0);
    EXPECT_EQ(EffectiveLogEpochs({}, kRectangle), 0.0);
}

TEST(EffectiveEpochs, OneEpochIsWorthOne) {
    EXPECT_EQ(EffectiveEpochs(Every(1, 1), kRectangle), 1.0);
}

TEST(EffectiveEpochs, EpochsThatTouchAreWorthTheirCount) {
    EXPECT_EQ(EffectiveEpochs(Every(4, 10), kRectangle), 10.0);
    EXPECT_EQ(EffectiveLogEpochs(Every(4, 10), kRectangle), 10.0);
}

TEST(EffectiveEpochs, TheSameEpochTwiceIsWorthOne) {
    EXPECT_DOUBLE_EQ(EffectiveEpochs(std::vector<std::int64_t>{8, 8}, kHanning), 1.0);
    EXPECT_DOUBLE_EQ(EffectiveLogEpochs(std::vector<std::int64_t>{8, 8}, kHanning), 1.0);
}

// Half overlap: ρ = (2/4)² = 1/4; 3²/(3 + 2·2/4) = 9/4.
TEST(EffectiveEpochs, ThreeRectanglesAtHalfOverlap) {
    EXPECT_DOUBLE_EQ(EffectiveEpochs(Every(2, 3), kRectangle), 2.25);
}

// Σw[i]w[i+2] = 0·1 + ½·½ = 1/4, Σw² = 3/2: ρ = 1/36; 2²/(2 + 2/36) = 72/37.
TEST(EffectiveEpochs, TwoHanningEpochsAtHalfOverlap) {
    EXPECT_DOUBLE_EQ(EffectiveEpochs(Every(2, 2), kHanning), 72.0 / 37.0);
}

// Li2(1/4) = 0.26765264, divided by π²/6 = 0.16271329; 9/(3 + 4·0.16271329) = 2.4651772.
TEST(EffectiveEpochs, LogarithmsAreCorrelatedLess) {
    EXPECT_NEAR(EffectiveLogEpochs(Every(2, 3), kRectangle), 2.4651772, 1e-7);
}

// A gap of 1 sample between the second and the third: lags 2 and 3, ρ = 1/4 and 1/16, and 5, none.
TEST(EffectiveEpochs, PlacementCounts) {
    EXPECT_DOUBLE_EQ(EffectiveEpochs(std::vector<std::int64_t>{0, 2, 5}, kRectangle),
                     9 / (3 + 2 * (0.25 + 0.0625)));
}

TEST(EffectiveEpochs, TheScaleOfTheTaperDoesNotCount) {
    const std::vector<double> scaled = {0, 5e-7, 1e-6, 5e-7};
    EXPECT_DOUBLE_EQ(EffectiveEpochs(Every(1, 7), scaled), EffectiveEpochs(Every(1, 7), kHanning));
}

TEST(EffectiveEpochs, ATaperOfZerosHasNone) {
    EXPECT_TRUE(std::isnan(EffectiveEpochs(Every(1, 2), std::vector<double>(4, 0.0))));
}

// At step 1 the sum over the lags is (16 + 2·(9 + 4 + 1))/16 = 2.75 per epoch, but for the ends.
TEST(EffectiveEpochs, AHundredThousandEpochs) {
    EXPECT_NEAR(EffectiveEpochs(Every(1, 100000), kRectangle), 100000 / 2.75, 1.0);
}

} // namespace
} // namespace orvanta::spectral
