// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_array_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using orvanta::chart::LayOutMapArray;
using orvanta::chart::MapGrid;
using orvanta::chart::Repaired;
using owl::TRect;
using testing::Each;
using testing::ElementsAre;

TEST(MapArrayLayout, FillsTheAreaRowByRow) {
    const auto layout = LayOutMapArray({0, 0, 300, 200}, {2, 3}, {});
    EXPECT_THAT(layout.maps,
                ElementsAre(TRect{0, 0, 100, 100}, TRect{100, 0, 200, 100}, TRect{200, 0, 300, 100},
                            TRect{0, 100, 100, 200}, TRect{100, 100, 200, 200}, TRect{200, 100, 300, 200}));
    EXPECT_TRUE(layout.title.IsEmpty());
    EXPECT_TRUE(layout.scale.IsEmpty());
    EXPECT_TRUE(layout.bar.IsEmpty());
}

TEST(MapArrayLayout, KeepsMapsEqualWhenPixelsDoNotDivide) {
    const auto layout = LayOutMapArray({10, 0, 21, 5}, {1, 3}, {});
    EXPECT_THAT(layout.maps, ElementsAre(TRect{11, 0, 14, 5}, TRect{14, 0, 17, 5}, TRect{17, 0, 20, 5}));
}

TEST(MapArrayLayout, PutsTitleAboveScaleBesideControlsBelow) {
    const auto layout = LayOutMapArray({0, 0, 400, 300}, {1, 1}, {24, 60, 36});
    EXPECT_EQ(layout.title, (TRect{0, 0, 400, 24}));
    EXPECT_EQ(layout.scale, (TRect{340, 24, 400, 264}));
    EXPECT_EQ(layout.bar, (TRect{0, 264, 400, 300}));
    EXPECT_THAT(layout.maps, ElementsAre(TRect{0, 24, 340, 264}));
}

TEST(MapArrayLayout, LeavesOutAScaleThatWouldTakeMoreThanAThird) {
    EXPECT_FALSE(LayOutMapArray({0, 0, 180, 300}, {1, 1}, {0, 60, 0}).scale.IsEmpty());
    EXPECT_TRUE(LayOutMapArray({0, 0, 179, 300}, {1, 1}, {0, 60, 0}).scale.IsEmpty());
}

TEST(MapArrayLayout, LeavesOutATitleThatWouldTakeMoreThanAThird) {
    EXPECT_FALSE(LayOutMapArray({0, 0, 180, 60}, {1, 1}, {20, 0, 0}).title.IsEmpty());
    EXPECT_TRUE(LayOutMapArray({0, 0, 180, 59}, {1, 1}, {20, 0, 0}).title.IsEmpty());
}

TEST(MapArrayLayout, HasOnlyEmptyPartsInAnEmptyArea) {
    const auto layout = LayOutMapArray({0, 0, 0, 0}, {8, 8}, {20, 60, 36});
    EXPECT_EQ(layout.maps.size(), 64U);
    EXPECT_THAT(layout.maps, Each(testing::Property(&TRect::IsEmpty, true)));
    EXPECT_TRUE(layout.bar.IsEmpty());
}

TEST(MapArrayLayout, StaysInAnAreaSmallerThanItsControls) {
    const auto layout = LayOutMapArray({0, 0, 100, 20}, {1, 1}, {20, 60, 36});
    EXPECT_EQ(layout.bar, (TRect{0, 0, 100, 20}));
    EXPECT_TRUE(layout.maps.front().IsEmpty());
}

TEST(MapGridSize, IsFromOneToEight) {
    EXPECT_EQ(Repaired({0, 0}), (MapGrid{1, 1}));
    EXPECT_EQ(Repaired({9, 65535}), (MapGrid{8, 8}));
    EXPECT_EQ(Repaired({2, 4}), (MapGrid{2, 4}));
}

} // namespace
