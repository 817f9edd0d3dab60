// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/contours.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;

TEST(ContourLevels, DivideTheScaleEvenly) {
    EXPECT_EQ(ContourLevels(0, 7, 6), (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST(ContourLevels, AreNoneOnAScaleWithoutWidth) {
    EXPECT_TRUE(ContourLevels(3, 3, 6).empty());
}

TEST(ContourCoverage, IsFullOnALine) {
    EXPECT_EQ(ContourCoverage(2, 0.1F, 6, 1), 1);
}

TEST(ContourCoverage, FadesWithTheDistanceInPixels) {
    EXPECT_NEAR(ContourCoverage(2.05F, 0.1F, 6, 1), 0.5, 1e-5); // half a pixel away
    EXPECT_NEAR(ContourCoverage(1.95F, 0.1F, 6, 1), 0.5, 1e-5);
    EXPECT_EQ(ContourCoverage(2.11F, 0.1F, 6, 1), 0);
}

TEST(ContourCoverage, IsWiderForAWiderLine) {
    EXPECT_EQ(ContourCoverage(2.1F, 0.1F, 6, 3), 1);
}

TEST(ContourCoverage, IsNothingAtTheEndsOfTheScale) {
    EXPECT_EQ(ContourCoverage(0, 0.1F, 6, 1), 0);
    EXPECT_EQ(ContourCoverage(7, 0.1F, 6, 1), 0);
}

TEST(ContourCoverage, IsNothingOnALevelField) {
    EXPECT_EQ(ContourCoverage(3, 0, 6, 1), 0);
}

} // namespace
