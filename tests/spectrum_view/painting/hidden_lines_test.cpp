// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/hidden_lines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

namespace {

using namespace orvanta::spectrum_view;
using Curve = std::vector<owl::TPoint>;
using Curves = std::vector<Curve>;

Curves Added(Horizon& horizon, const Curve& curve) {
    const auto stretches = horizon.Add(curve);
    return {stretches.begin(), stretches.end()};
}

/// Rows of a curve per column.
std::map<int, double> Exact(const Curve& curve) {
    std::map<int, double> rows;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        rows[curve[i].x] = curve[i].y;
        for (int x = curve[i].x + 1; i + 1 < curve.size() && x < curve[i + 1].x; ++x) {
            const double share = static_cast<double>(x - curve[i].x) / (curve[i + 1].x - curve[i].x);
            rows[x] = curve[i].y + share * (curve[i + 1].y - curve[i].y);
        }
    }
    return rows;
}

TEST(HiddenLines, TheFirstCurveIsWhole) {
    Horizon horizon(0, 11);
    EXPECT_EQ(Added(horizon, {{0, 9}, {5, 2}, {10, 9}}), (Curves{{{0, 9}, {5, 2}, {10, 9}}}));
}

TEST(HiddenLines, ACurveBehindShowsWhereItIsHigher) {
    Horizon horizon(0, 11);
    Added(horizon, {{0, 10}, {5, 0}, {10, 10}});
    EXPECT_EQ(Added(horizon, {{0, 5}, {10, 5}}), (Curves{{{0, 5}, {2, 5}}, {{8, 5}, {10, 5}}}));
}

TEST(HiddenLines, ACurveAsHighIsHidden) {
    Horizon horizon(0, 11);
    Added(horizon, {{0, 5}, {10, 5}});
    EXPECT_TRUE(Added(horizon, {{0, 5}, {10, 5}}).empty());
}

TEST(HiddenLines, ASinglePixelIsALineToItself) {
    Horizon horizon(0, 11);
    EXPECT_EQ(Added(horizon, {{4, 3}}), (Curves{{{4, 3}, {4, 3}}}));
}

TEST(HiddenLines, ColumnsWithoutACurveHideNothing) {
    Horizon horizon(0, 21);
    Added(horizon, {{0, 2}, {5, 2}});
    Added(horizon, {{15, 2}, {20, 2}});
    EXPECT_EQ(Added(horizon, {{0, 8}, {20, 8}}), (Curves{{{6, 8}, {14, 8}}}));
}

TEST(HiddenLines, LevelStretchesNeedTwoPoints) {
    Horizon horizon(0, 31);
    EXPECT_EQ(Added(horizon, {{0, 5}, {10, 5}, {20, 5}, {30, 4}}), (Curves{{{0, 5}, {20, 5}, {30, 4}}}));
}

TEST(HiddenLines, NothingOutsideTheColumnsIsTakenIn) {
    Horizon horizon(5, 8);
    EXPECT_EQ(Added(horizon, {{0, 3}, {20, 3}}), (Curves{{{5, 3}, {7, 3}}}));
    EXPECT_TRUE(Added(horizon, {}).empty());
}

/// Every pixel of random curves against all curves before it, one by one.
TEST(HiddenLines, AreThoseThatACurveBeforeReaches) {
    std::mt19937 random(7);
    std::uniform_int_distribution height(0, 60);
    std::uniform_int_distribution stride(1, 9);
    Horizon horizon(0, 200);
    std::map<int, int> front;
    for (int row = 0; row < 40; ++row) {
        Curve curve;
        for (int x = 0; x < 200; x += stride(random)) {
            curve.push_back({x, 400 - 4 * row - height(random)});
        }
        std::map<int, double> shown;
        for (const Curve& stretch : Added(horizon, curve)) {
            for (const auto& [x, y] : Exact(stretch)) {
                shown[x] = y;
            }
        }
        for (const auto& [x, exact] : Exact(curve)) {
            const int y = static_cast<int>(std::floor(exact + 0.5));
            const bool isInFront = !front.contains(x) || y < front[x];
            ASSERT_EQ(shown.contains(x), isInFront) << "row " << row << " column " << x;
            if (isInFront) {
                ASSERT_NEAR(shown[x], exact, 1.0) << "row " << row << " column " << x;
                front[x] = y;
            }
        }
    }
}

} // namespace
