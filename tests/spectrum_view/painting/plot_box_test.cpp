// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/plot_box.h"

#include "spectrum_view/painting/whole_pixels.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace orvanta::spectrum_view;

TEST(PlotBox, ItsWidthAndHeightAreTheDifferencesOfItsEdges) {
    EXPECT_EQ(kPlotWidth, 0.98 - 0.1);
    EXPECT_EQ(kPlotHeight, 0.92 - 0.05);
}

TEST(PlotBox, LiesAtFixedSharesOfItsSlotTruncated) {
    EXPECT_EQ(PlotArea({0, 0, 200, 100}), (owl::TRect{20, 5, 196, 92}));
    EXPECT_EQ(PlotArea({0, 0, 333, 217}), (owl::TRect{33, 10, 326, 199}));
    EXPECT_EQ(PlotArea({100, 50, 300, 150}), (owl::TRect{120, 55, 296, 142}));
}

TEST(PlotBox, AxisStartsOnTheBaseline) {
    EXPECT_EQ(AxisOrigin({100, 50, 300, 150}), (owl::TPoint{120, 142}));
}

TEST(WholePixels, AreCutTowardZero) {
    EXPECT_EQ(WholePixels(2.99), 2);
    EXPECT_EQ(WholePixels(-2.99), -2);
}

TEST(WholePixels, StayWhereNumbersEnd) {
    EXPECT_EQ(WholePixels(1e300), 1000000);
    EXPECT_EQ(WholePixels(-std::numeric_limits<double>::infinity()), -1000000);
    EXPECT_EQ(WholePixels(std::numeric_limits<double>::quiet_NaN()), 0);
}

} // namespace
