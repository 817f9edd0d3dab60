// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/band_colors.h"

#include "tests/spectrum_view/painting/color_vision.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using test::Vision;

/// The smallest difference between any two band colours.
double SmallestDifference(Vision vision) {
    double smallest = 1e9;
    for (std::size_t i = 0; i < kBandColors.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            smallest = std::min(smallest, test::ColorDifference(test::LabOf(kBandColors[i], vision),
                                                                test::LabOf(kBandColors[j], vision)));
        }
    }
    return smallest;
}

TEST(BandColors, AreEightTheFirstLightRed) {
    EXPECT_EQ(kBandColors.size(), 8u);
    EXPECT_EQ(kBandColors[0], owl::Rgb(255, 128, 128));
}

// A difference of about 2 is just seen side by side; 10 is told apart at a glance.
TEST(BandColors, AreToldApart) {
    EXPECT_GT(SmallestDifference(Vision::Normal), 20);
}

TEST(BandColors, AreToldApartWithoutOneKindOfCone) {
    EXPECT_GT(SmallestDifference(Vision::Protan), 16);
    EXPECT_GT(SmallestDifference(Vision::Deutan), 16);
    EXPECT_GT(SmallestDifference(Vision::Tritan), 16);
}

TEST(BandColors, CarryReadableBlackText) {
    for (const owl::TColor color : kBandColors) {
        EXPECT_GE(test::Contrast(test::Luminance(color), 0), 4.5) << color;
    }
}

TEST(BandColors, StandOutFromWhite) {
    for (const owl::TColor color : kBandColors) {
        EXPECT_GE(test::Contrast(1, test::Luminance(color)), 1.5) << color;
    }
}

TEST(MergedColors, AreHalfOfEach) {
    EXPECT_EQ(MergeColors(owl::Rgb(255, 128, 0), owl::Rgb(255, 255, 255)), owl::Rgb(255, 191, 127));
    EXPECT_EQ(MergeColors(owl::Rgb(10, 20, 31), owl::Rgb(20, 10, 0)), owl::Rgb(15, 15, 15));
}

TEST(ShadingColor, HasWhiteMixedInTwice) {
    EXPECT_EQ(ShadingColor(owl::Rgb(255, 128, 0)), owl::Rgb(255, 223, 191));
}

// --- the yardstick itself

TEST(ColorDifference, AgreesWithThePublishedTestData) {
    // Pairs 1, 5, 13 and 25 of the supplementary data to Sharma, Wu and Dalal 2005.
    EXPECT_NEAR(test::ColorDifference({50, 2.6772, -79.7751}, {50, 0, -82.7485}), 2.0425, 5e-5);
    EXPECT_NEAR(test::ColorDifference({50, -1.1848, -84.8006}, {50, 0, -82.7485}), 1.0, 5e-5);
    EXPECT_NEAR(test::ColorDifference({50, -0.001, 2.49}, {50, 0.0009, -2.49}), 4.8045, 5e-5);
    EXPECT_NEAR(test::ColorDifference({60.2574, -34.0099, 36.2677}, {60.4626, -34.1751, 39.4387}), 1.2644,
                5e-5);
}

TEST(ColorVision, WithoutRedOrGreenConesRedAndGreenFallTogether) {
    const owl::TColor olive = owl::Rgb(120, 110, 40), brown = owl::Rgb(150, 95, 40);
    const double normal = test::ColorDifference(test::LabOf(olive), test::LabOf(brown));
    const double deutan =
        test::ColorDifference(test::LabOf(olive, Vision::Deutan), test::LabOf(brown, Vision::Deutan));
    EXPECT_LT(deutan, normal / 2);
}

TEST(ColorVision, GreyStaysGrey) {
    for (const Vision vision : {Vision::Protan, Vision::Deutan, Vision::Tritan}) {
        EXPECT_LT(test::ColorDifference(test::LabOf(owl::Rgb(128, 128, 128), vision),
                                        test::LabOf(owl::Rgb(128, 128, 128))),
                  0.1);
    }
}

} // namespace
