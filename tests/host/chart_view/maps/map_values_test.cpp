// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_values.h"

#include "tests/support/qt/fake_global_window.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using orvanta::chart::ClipboardTable;
using orvanta::chart::MapContent;
using orvanta::chart::OverallRange;
using orvanta::chart::ValueRange;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(OverallRangeOfMaps, TakesFiniteValuesOfAllMaps) {
    const std::vector<MapContent> maps{{"A", {3, kNaN}, ""}, {"B", {-2, kInfinity, 7}, ""}, {"C", {}, ""}};
    EXPECT_EQ(OverallRange(maps), (ValueRange{-2, 7}));
}

TEST(OverallRangeOfMaps, IsNotKnownWithoutFiniteValues) {
    EXPECT_EQ(OverallRange({}), std::nullopt);
    const std::vector<MapContent> maps{{"A", {kNaN, -kInfinity}, ""}};
    EXPECT_EQ(OverallRange(maps), std::nullopt);
}

TEST(ClipboardOfMaps, HasARowForEachMapWithThreeDecimals) {
    const orvanta::test::FakePlatform platform;
    const std::vector<MapContent> maps{{"Alpha", {1.5, kNaN, 0.00049}, "µV²"}, {"Beta", {-12.3456}, ""}};
    EXPECT_EQ(ClipboardTable("Item\tFz\tCz\tPz\r\n", maps, platform),
              "Item\tFz\tCz\tPz\r\nAlpha\t1.500\tn/a\t0.000\r\nBeta\t-12.346\r\n");
}

TEST(ClipboardOfMaps, HasTheFirstRowAloneWithoutMaps) {
    const orvanta::test::FakePlatform platform;
    EXPECT_EQ(ClipboardTable("Item\r\n", {}, platform), "Item\r\n");
}

} // namespace
