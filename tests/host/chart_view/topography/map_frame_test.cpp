// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/map_frame.h"

#include "tests/support/qt/recording_dc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;
using orvanta::test::RecordingDC;
using testing::ElementsAre;
using testing::IsEmpty;

int WidthFor(const std::vector<std::string>& numbers) {
    const RecordingDC dc;
    return RoomOfScale(dc, {0, 1, numbers, "µV²"}).beside.cx;
}

constexpr ScaleRoom kScale{{50, 36}, {100, 22}};

TEST(RoomOfAScale, IsTheSameForNumbersOfUsualLengths) {
    EXPECT_EQ(WidthFor({"6", "119", "232"}), WidthFor({"10.45", "14.91", "19.37"}));
    EXPECT_EQ(WidthFor({"0"}), WidthFor({"5.167", "5.464", "5.760"}));
}

TEST(RoomOfAScale, GrowsForLongerNumbers) {
    EXPECT_GT(WidthFor({"0.000012"}), WidthFor({"10.45"}));
}

TEST(RoomOfAScale, IsEnoughForBoth) {
    EXPECT_EQ(RoomForBoth({{50, 36}, {100, 22}}, {{40, 48}, {120, 20}}), (ScaleRoom{{50, 48}, {120, 22}}));
}

TEST(FrameOfAMap, PutsTheScaleBesideWhereThatLeavesTheLargerHead) {
    const MapFrame frame = LayOutMap({0, 0, 250, 200}, 12, kScale);
    EXPECT_EQ(frame.title, (owl::TRect{4, 4, 246, 16}));
    EXPECT_FALSE(frame.below);
    EXPECT_EQ(frame.scale, (owl::TRect{196, 20, 246, 196}));
    EXPECT_EQ(frame.body, (owl::TRect{4, 20, 188, 196}));
}

TEST(FrameOfAMap, PutsTheScaleBelowWhereThatLeavesTheLargerHead) {
    const MapFrame frame = LayOutMap({0, 0, 150, 170}, 12, kScale);
    EXPECT_TRUE(frame.below);
    EXPECT_EQ(frame.scale, (owl::TRect{4, 144, 146, 166}));
    EXPECT_EQ(frame.body, (owl::TRect{4, 20, 146, 140}));
}

TEST(FrameOfAMap, PutsAScaleBesideThatIsTooWideToLieBelow) {
    EXPECT_FALSE(LayOutMap({0, 0, 150, 170}, 12, {{50, 36}, {143, 22}}).below);
}

TEST(FrameOfAMap, LeavesTheScaleOutWhereTheHeadWouldBeTooSmall) {
    EXPECT_THAT(LayOutMap({0, 0, 90, 200}, 12, kScale).scale.IsEmpty(), true);   // 14 beside, no room below
    EXPECT_THAT(LayOutMap({0, 0, 120, 110}, 12, kScale).scale.IsEmpty(), true);  // 54 beside, 60 below
    EXPECT_THAT(LayOutMap({0, 0, 120, 130}, 12, kScale).scale.IsEmpty(), false); // 80 below
}

class ScaleOfAMap : public testing::Test {
protected:
    /// \param head in the body of the frame
    std::vector<std::string> Paint(const MapFrame& frame, const owl::TRect& head) {
        PaintScaleOf(dc, frame, head, FindPalette("grey")->colors, {0, 9, {"0.0", "4.5", "9.0"}, "Hz"}, look);
        return dc.CallsOf({"image", "text"});
    }
    RecordingDC dc;
    MapLook look;
};

TEST_F(ScaleOfAMap, StandsAsHighAsItsHead) {
    const MapFrame frame{{}, {0, 0, 150, 300}, {160, 0, 220, 300}, false};
    // The unit has a line of 12 pixels and 2 more above the bar, and as much is left below it.
    EXPECT_THAT(Paint(frame, {0, 75, 150, 225}),
                ElementsAre("image 160,89,170,211 1x256", "text 160,75 left \"Hz\"",
                            "text 174,199 left \"0.0\"", "text 174,144 left \"4.5\"",
                            "text 174,89 left \"9.0\""));
}

TEST_F(ScaleOfAMap, LiesRightBelowItsHead) {
    const MapFrame frame{{}, {0, 0, 150, 270}, {0, 278, 150, 300}, true};
    EXPECT_THAT(Paint(frame, {25, 80, 125, 190}),
                ElementsAre("image 25,194,125,204 256x1", "text 25,204 left \"0.0\"",
                            "text 107,204 left \"9.0\"", "text 69,204 left \"Hz\""));
}

TEST_F(ScaleOfAMap, HasALineForEachContourAlsoLying) {
    look.contours = 2;
    Paint({{}, {0, 0, 150, 270}, {0, 278, 150, 300}, true}, {25, 80, 125, 190});
    EXPECT_THAT(dc.CallsOf("line"), ElementsAre("line 58,195 58,202", "line 91,195 91,202"));
}

TEST_F(ScaleOfAMap, IsNotThereWithoutRoom) {
    EXPECT_THAT(Paint({{}, {0, 0, 150, 300}, {}, false}, {0, 75, 150, 225}), IsEmpty());
}

} // namespace
