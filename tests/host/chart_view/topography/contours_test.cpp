// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/contours.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace orvanta::chart;
using Lines = std::vector<std::vector<GridPoint>>;

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();

std::vector<float> Cone(int side) {
    std::vector<float> field;
    const double middle = (side - 1) / 2.0;
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            field.push_back(static_cast<float>(std::hypot(column - middle, row - middle)));
        }
    }
    return field;
}

TEST(ContourLines, CrossARampWhereTheValueIs) {
    const std::vector<float> ramp = {0, 1, 2, 0, 1, 2, 0, 1, 2};
    EXPECT_EQ(ContourLines(ramp, 3, 1.25), (Lines{{{1.25, 0}, {1.25, 1}, {1.25, 2}}}));
}

TEST(ContourLines, CloseARingAroundAHill) {
    const std::vector<float> hill = {0, 0, 0, 0, 1, 0, 0, 0, 0};
    const Lines lines = ContourLines(hill, 3, 0.5);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].size(), 5U);
    EXPECT_EQ(lines[0].front(), lines[0].back());
}

TEST(ContourLines, LieAtTheRadiusOfACone) {
    const Lines lines = ContourLines(Cone(41), 41, 12.5);
    ASSERT_EQ(lines.size(), 1U);
    for (const GridPoint& point : lines[0]) {
        EXPECT_NEAR(std::hypot(point.column - 20, point.row - 20), 12.5, 0.02);
    }
}

TEST(ContourLines, SeparateOppositeHillsWhoseMiddleIsLow) {
    const Lines lines = ContourLines(std::vector<float>{1, 0, 0, 1}, 2, 0.6);
    ASSERT_EQ(lines.size(), 2U);
    for (const auto& line : lines) { // each cuts off one of the hills, at the upper left and lower right
        EXPECT_NEAR(std::abs(line[0].column + line[0].row - 1), 0.6, 1e-6);
    }
}

TEST(ContourLines, JoinOppositeHillsWhoseMiddleIsHigh) {
    const Lines lines = ContourLines(std::vector<float>{1, 0, 0, 1}, 2, 0.4);
    ASSERT_EQ(lines.size(), 2U);
    for (const auto& line : lines) { // each cuts off one of the hollows, at the upper right and lower left
        EXPECT_NEAR(std::abs(line[0].column - line[0].row), 0.6, 1e-6);
    }
}

TEST(ContourLines, EndAtPixelsWithoutValue) {
    const std::vector<float> ramp = {0, 1, kNone, 0, 1, 2, 0, 1, 2};
    EXPECT_EQ(ContourLines(ramp, 3, 1.5), (Lines{{{1.5, 1}, {1.5, 2}}}));
}

TEST(ContourLines, AreNoneOnALevelField) {
    EXPECT_TRUE(ContourLines(std::vector<float>(9, 3), 3, 3).empty());
    EXPECT_TRUE(ContourLines(std::vector<float>(9, 3), 3, 2).empty());
}

TEST(ContourLevels, DivideTheScaleEvenly) {
    EXPECT_EQ(ContourLevels(0, 7, 6), (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST(ContourLevels, AreNoneOnAScaleWithoutWidth) {
    EXPECT_TRUE(ContourLevels(3, 3, 6).empty());
}

} // namespace
