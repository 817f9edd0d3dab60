// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/map_frame.h"

#include "tests/support/qt/recording_dc.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;
using orvanta::test::RecordingDC;

int WidthFor(const std::vector<std::string>& numbers) {
    const RecordingDC dc;
    return ScaleExtent(dc, {0, 1, numbers, "µV²"}).cx;
}

TEST(RoomOfAScale, IsTheSameForNumbersOfUsualLengths) {
    EXPECT_EQ(WidthFor({"6", "119", "232"}), WidthFor({"10.45", "14.91", "19.37"}));
    EXPECT_EQ(WidthFor({"0"}), WidthFor({"5.167", "5.464", "5.760"}));
}

TEST(RoomOfAScale, GrowsForLongerNumbers) {
    EXPECT_GT(WidthFor({"0.000012"}), WidthFor({"10.45"}));
}

TEST(FrameOfAMap, LeavesTheScaleOutWhereTheHeadWouldBeTooSmall) {
    EXPECT_TRUE(LayOutMap({0, 0, 110, 200}, 12, {50, 36}, true).scale.IsEmpty());
    EXPECT_EQ(LayOutMap({0, 0, 200, 200}, 12, {50, 36}, true).scale, (owl::TRect{146, 20, 196, 196}));
}

} // namespace
