// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/curve_coverage.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace {

using Column = std::pair<int, std::vector<int>>; ///< top, and the coverage downwards

std::map<int, Column> Covered(const std::vector<owl::TPointF>& points, double width,
                              const owl::TRect& clip = {0, 0, 10, 10}) {
    std::map<int, Column> columns;
    owl::CoverCurve(points, width, clip, [&](const owl::CoveredColumn& column) {
        columns[column.x] = {column.top, {column.coverage.begin(), column.coverage.end()}};
    });
    return columns;
}

TEST(CurveCoverage, CoversOneRowOfPixelsWhereTheCurveRunsAlongTheirMiddle) {
    const auto covered = Covered({{0.5, 4.5}, {8.5, 4.5}}, 1);
    EXPECT_EQ(covered.at(3), (Column{4, {255}}));
    EXPECT_EQ(covered.at(5), (Column{4, {255}}));
    EXPECT_EQ(covered.size(), 9);
}

TEST(CurveCoverage, SharesTwoRowsWhereTheCurveRunsBetweenThem) {
    EXPECT_EQ(Covered({{0, 4.25}, {9, 4.25}}, 1).at(5), (Column{3, {64, 191}}));
}

TEST(CurveCoverage, CoversOneColumnWhereTheCurveRunsDownItsMiddle) {
    const auto covered = Covered({{4.5, 2.5}, {4.5, 7.5}}, 1);
    ASSERT_EQ(covered.size(), 1);
    const Column& column = covered.at(4);
    EXPECT_EQ(column.first, 2);
    ASSERT_EQ(column.second.size(), 6);
    EXPECT_EQ(column.second[1], 255);
    EXPECT_EQ(column.second[4], 255);
}

TEST(CurveCoverage, LiesNoHeavierOnAColumnThatItRunsUpAndDown) {
    EXPECT_EQ(Covered({{4.5, 2.5}, {4.5, 7.5}, {4.5, 2.5}, {4.5, 7.5}}, 1),
              Covered({{4.5, 2.5}, {4.5, 7.5}}, 1));
}

TEST(CurveCoverage, CoversAPointAsARoundDot) {
    const auto covered = Covered({{4.5, 4.5}}, 3);
    EXPECT_EQ(covered.size(), 3);
    const auto& middle = covered.at(4).second;
    ASSERT_EQ(middle.size(), 3);
    EXPECT_NEAR(middle[0], 248, 2); // 255 times the mean of √(1.5² − x²) − 0.5 for |x| below 0.5
    EXPECT_EQ(middle[1], 255);
    EXPECT_NEAR(middle[2], 248, 2);
    EXPECT_EQ(covered.at(3).second, covered.at(5).second);
    EXPECT_LT(covered.at(3).second[0], 200);
    EXPECT_EQ(covered.at(3).second[1], 255);
}

TEST(CurveCoverage, CoversAsMuchOfASlantedLineAsItsLengthTimesItsWidth) {
    double sum = 0;
    for (const auto& [x, column] : Covered({{0, 1}, {9, 10}}, 1, {2, 0, 8, 20})) {
        for (const int coverage : column.second) {
            sum += coverage / 255.0;
        }
    }
    EXPECT_NEAR(sum, 6 * 1.41421356, 0.1); // six columns at 45°
}

TEST(CurveCoverage, StaysInsideTheClip) {
    const auto covered = Covered({{-1e9, 4.5}, {0, -1e6}, {4, 1e6}, {1e9, 4.5}}, 1, {1, 2, 3, 6});
    EXPECT_EQ(covered.begin()->first, 1);
    EXPECT_EQ(covered.rbegin()->first, 2);
    for (const auto& [x, column] : covered) {
        EXPECT_GE(column.first, 2);
        EXPECT_LE(column.first + static_cast<int>(column.second.size()), 6);
    }
}

TEST(CurveCoverage, CoversNothingWithoutPointsPenOrRoom) {
    EXPECT_TRUE(Covered({}, 1).empty());
    EXPECT_TRUE(Covered({{1, 1}, {5, 1}}, 0).empty());
    EXPECT_TRUE(Covered({{1, 1}, {5, 1}}, 1, {3, 3, 3, 9}).empty());
    EXPECT_TRUE(Covered({{20, 1}, {25, 1}}, 1).empty());
}

} // namespace
