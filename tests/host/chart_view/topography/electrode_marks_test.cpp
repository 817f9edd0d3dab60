// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/electrode_marks.h"

#include "host/chart_view/topography/text_fit.h"
#include "tests/support/qt/recording_dc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;
using orvanta::test::RecordingDC;
using testing::ElementsAre;

constexpr owl::TRect kArea{0, 0, 100, 100};
constexpr owl::TSize kLabel{20, 10};

TEST(PlaceLabels, StandBelowTheirDots) {
    EXPECT_THAT(PlaceLabels({{50, 50}}, {kLabel}, 3, kArea), ElementsAre(owl::TRect{40, 54, 60, 64}));
}

TEST(PlaceLabels, StandAboveWhereThereIsNoRoomBelow) {
    EXPECT_THAT(PlaceLabels({{50, 95}}, {kLabel}, 3, kArea), ElementsAre(owl::TRect{40, 82, 60, 92}));
}

TEST(PlaceLabels, StandBesideTheirDotsBetweenOthers) {
    const auto boxes = PlaceLabels({{50, 50}, {50, 60}, {50, 42}}, {kLabel, {}, {}}, 3, kArea);
    EXPECT_EQ(boxes[0], (owl::TRect{55, 45, 75, 55}));
}

TEST(PlaceLabels, AreLeftOutWithoutRoom) {
    // Dots all around the second.
    const auto boxes = PlaceLabels({{50, 50}, {50, 50}}, {{90, 10}, {90, 10}}, 3, {0, 40, 100, 65});
    EXPECT_FALSE(boxes[0].IsEmpty());
    EXPECT_TRUE(boxes[1].IsEmpty());
}

TEST(PlaceLabels, NeverTouch) {
    std::vector<owl::TPoint> dots;
    for (int i = 0; i < 60; ++i) {
        dots.push_back({10 + i % 8 * 11, 10 + i / 8 * 11});
    }
    const auto boxes = PlaceLabels(dots, std::vector<owl::TSize>(dots.size(), kLabel), 2, kArea);
    int placed = 0;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        placed += boxes[i].IsEmpty() ? 0 : 1;
        for (std::size_t j = i + 1; j < boxes.size(); ++j) {
            EXPECT_FALSE(boxes[i].Touches(boxes[j])) << i << " and " << j;
        }
    }
    EXPECT_GT(placed, 3);
}

TEST(DotReach, IsSmallerOnSmallerHeads) {
    EXPECT_EQ(DotReach(200), 3);
    EXPECT_EQ(DotReach(60), 2);
    EXPECT_EQ(DotReach(30), 1);
    EXPECT_EQ(DotReach(10), 0); // no dots
}

// Each character is 6 pixels wide, bytes of one character alike.
TEST(Elided, KeepsWhatFits) {
    const RecordingDC dc;
    EXPECT_EQ(Elided(dc, "Alpha", 30), "Alpha");
    EXPECT_EQ(Elided(dc, "Alpha", 29), "Alp…");
    EXPECT_EQ(Elided(dc, "µV per Hz", 30), "µV p…");
    EXPECT_EQ(Elided(dc, "µV per Hz", 26), "µV…"); // no blank before the mark
    EXPECT_EQ(Elided(dc, "Alpha", 6), "");
}

TEST(Wrapped, BreaksAtBlanks) {
    const RecordingDC dc;
    EXPECT_THAT(Wrapped(dc, "No known place", 48), ElementsAre("No known", "place"));
    EXPECT_THAT(Wrapped(dc, "No known place", 200), ElementsAre("No known place"));
    EXPECT_THAT(Wrapped(dc, "electrodes", 42), ElementsAre("electr…"));
    EXPECT_THAT(Wrapped(dc, "", 42), ElementsAre());
}

} // namespace
