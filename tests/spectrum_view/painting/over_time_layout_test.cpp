// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/over_time_layout.h"

#include "spectrum_view/painting/axes.h"
#include "spectrum_view/painting/plot_box.h"
#include "tests/spectrum_view/painting/over_time_input.h"
#include "tests/support/qt/recording_dc.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;

owl::TSize SixWide(std::string_view text) {
    return test::RecordingDC().GetTextExtent(text);
}

OverTimeInput InSlot(int width, int height) {
    OverTimeInput input = test::TenSeconds();
    input.frame.slot = {30, 20, 30 + width, 20 + height};
    input.frame.vertical = {0, 12.5, 0};
    return input;
}

bool LiesIn(const owl::TRect& rect, const owl::TRect& area) {
    return rect.left >= area.left && rect.right <= area.right && rect.top >= area.top &&
           rect.bottom <= area.bottom;
}

void ExpectInOrder(const OverTimeLayout& layout, const owl::TRect& slot) {
    PlacedTexts all;
    for (const PlacedTexts* texts : {&layout.label, &layout.side, &layout.below, &layout.barNumbers}) {
        all.insert(all.end(), texts->begin(), texts->end());
    }
    EXPECT_FALSE(layout.plot.IsEmpty());
    EXPECT_TRUE(LiesIn(layout.plot, slot));
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_TRUE(LiesIn(all[i].rect, slot)) << all[i].text;
        EXPECT_FALSE(all[i].rect.Touches(layout.plot)) << all[i].text;
        EXPECT_FALSE(all[i].rect.Touches(layout.colorBar)) << all[i].text;
        for (std::size_t other = 0; other < i; ++other) {
            EXPECT_FALSE(all[i].rect.Touches(all[other].rect)) << all[i].text << ", " << all[other].text;
        }
    }
    EXPECT_FALSE(layout.colorBar.Touches(layout.plot));
}

TEST(OverTimeLayout, NothingOverlapsOrIsCutAtAnySize) {
    for (const int width : {70, 90, 120, 160, 265, 300, 480, 700, 1920, 3840}) {
        for (const int height : {40, 60, 90, 130, 190, 270, 540, 1080, 2160}) {
            SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
            const OverTimeInput input = InSlot(width, height);
            ExpectInOrder(CompressedArrayLayout(input, SixWide), input.frame.slot);
            ExpectInOrder(TimeFrequencyLayout(input, SixWide), input.frame.slot);
        }
    }
}

TEST(OverTimeLayout, NumbersGoBeforeTheLabel) {
    const OverTimeLayout large = TimeFrequencyLayout(InSlot(300, 200), SixWide);
    EXPECT_FALSE(large.side.empty() || large.below.empty() || large.barNumbers.empty() ||
                 large.label.empty());
    const OverTimeLayout medium = TimeFrequencyLayout(InSlot(120, 45), SixWide);
    EXPECT_TRUE(medium.side.empty() && medium.below.empty() && medium.colorBar.IsEmpty());
    EXPECT_FALSE(medium.label.empty());
    const OverTimeLayout small = TimeFrequencyLayout(InSlot(70, 24), SixWide);
    EXPECT_TRUE(small.label.empty());
}

TEST(OverTimeLayout, ATextSwitchedOffLeavesItsRoomToThePlot) {
    OverTimeInput input = InSlot(300, 200);
    input.frame.flags.axesText = false;
    input.frame.flags.labels = false;
    EXPECT_EQ(CompressedArrayLayout(input, SixWide).plot, PlotArea(input.frame.slot));
    EXPECT_EQ(TimeFrequencyLayout(input, SixWide).plot, PlotArea(input.frame.slot));
}

TEST(OverTimeLayout, ColorBarMakesWayForTheMeasuresBox) {
    OverTimeInput input = InSlot(400, 300);
    input.frame.box = {300, 40, 420, 120};
    EXPECT_TRUE(TimeFrequencyLayout(input, SixWide).colorBar.IsEmpty());
}

TEST(OverTimeLayout, WithoutALabelTheUnitStandsOverTheColorBar) {
    OverTimeInput input = InSlot(400, 300);
    input.frame.flags.labels = false;
    EXPECT_EQ(TimeFrequencyLayout(input, SixWide).barNumbers.back().text, "µV");
}

TEST(NumberText, HasTheDecimalsThatTheStepNeeds) {
    EXPECT_EQ(NumberText(5, 5), "5");
    EXPECT_EQ(NumberText(2.5, 2.5), "2.5");
    EXPECT_EQ(NumberText(0.25, 0.05), "0.25");
    EXPECT_EQ(NumberText(-90, 90), "-90");
    EXPECT_EQ(NumberText(3.141592653589793, 1.5707963267948966), "3.14");
    EXPECT_EQ(NumberText(20, 0.5), "20.0");
    EXPECT_EQ(NumberText(2e-12, 1e-12), "2e-12");
    EXPECT_EQ(NumberText(2e9, 1e9), "2e+09");
}

TEST(SlotAround, HasItsPlotAreaThere) {
    const owl::TRect plot{100, 50, 452, 224};
    EXPECT_EQ(PlotArea(SlotAround(plot)), plot);
}

} // namespace
