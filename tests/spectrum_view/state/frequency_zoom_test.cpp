// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/state/frequency_zoom.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta::spectrum_view;
using SPECT::FrequencyRange;
using SPECT::Scale;

Scale UpTo(double maxX, double minX = 0) {
    return {0, 10, minX, maxX, true};
}

double Widened(double maxX, double rate) {
    Scale scale = UpTo(maxX);
    Widen(scale, rate);
    return scale.MaxX;
}

double Narrowed(double maxX) {
    Scale scale = UpTo(maxX);
    Narrow(scale);
    return scale.MaxX;
}

TEST(Widening, DoublesAndThenEndsAtHalfTheRate) {
    EXPECT_EQ(Widened(100, 256), 200);
    EXPECT_EQ(Widened(200, 256), 128);
    EXPECT_EQ(Widened(128, 256), 128);
}

TEST(Widening, HalvesAnOddRateToWholeHertz) {
    EXPECT_EQ(Widened(200, 255), 127);
    EXPECT_EQ(Widened(127, 255), 254); // half the rate is 127.5
    EXPECT_EQ(Widened(200, 173.61), 87);
}

TEST(Narrowing, HalvesDownToFourHertz) {
    EXPECT_EQ(Narrowed(10), 5);
    EXPECT_EQ(Narrowed(8), 4);
    EXPECT_EQ(Narrowed(7.9), 4);
    EXPECT_EQ(Narrowed(4), 4);
    EXPECT_EQ(Narrowed(0), 4);
}

TEST(Zooming, ChangesOnlyTheTopOfTheRecord) {
    Scale scale{1, 2, 3, 40, false};
    Widen(scale, 256);
    EXPECT_EQ(scale, (Scale{1, 2, 3, 80, false}));
    Narrow(scale);
    EXPECT_EQ(scale, (Scale{1, 2, 3, 40, false}));
}

TEST(Zooming, TheShownTopStaysBelowHalfTheRate) {
    EXPECT_EQ(RangeAfterZoom(UpTo(200), {2, 100}, 256), (FrequencyRange{2, 128}));
    EXPECT_EQ(RangeAfterZoom(UpTo(64), {2, 100}, 256), (FrequencyRange{2, 64}));
}

TEST(Zooming, TheShownBottomGivesWay) {
    EXPECT_EQ(RangeAfterZoom(UpTo(4), {10, 32}, 256), (FrequencyRange{4, 4}));
    EXPECT_EQ(RangeAfterZoom(UpTo(64), {-1, 32}, 256), (FrequencyRange{0, 64}));
}

TEST(EditingTheRange, KeepsFourHertzAtLeast) {
    EXPECT_EQ(RangeAfterEdit(UpTo(2)), (FrequencyRange{0, 4}));
    EXPECT_EQ(RangeAfterEdit(UpTo(40, 2)), (FrequencyRange{2, 40}));
}

TEST(EditingTheRange, StartsAtZeroWhereTheBottomMakesNoSense) {
    EXPECT_EQ(RangeAfterEdit(UpTo(32, -3)), (FrequencyRange{0, 32}));
    EXPECT_EQ(RangeAfterEdit(UpTo(4, 5)), (FrequencyRange{0, 4}));
    EXPECT_EQ(RangeAfterEdit(UpTo(4, 4)), (FrequencyRange{0, 4}));
}

} // namespace
