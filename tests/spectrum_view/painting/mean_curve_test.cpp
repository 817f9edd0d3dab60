// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/mean_curve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace orvanta::spectrum_view;
using SPECT::Normalisation;
using Points = std::vector<owl::TPoint>;

constexpr owl::TRect kSlot{100, 50, 300, 150};
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Bins of 1 Hz from 0 to 4 Hz, values from 1 to 5.
CurveGeometry OneHertz(Normalisation normalisation = Normalisation::None) {
    return {kSlot, {0, 4, 1, 0, 4}, {1, 5, 0}, normalisation};
}

/// Bins of 0.5 Hz from 2 to 4 Hz.
CurveGeometry HalfHertzFromTwo() {
    return {kSlot, {2, 4, 0.5, 4, 8}, {0, 10, 0}, Normalisation::None};
}

TEST(MeanCurve, StartsOnTheAxisOriginAndHasAVertexPerBin) {
    const std::vector<double> values{1, 3, 2, 5, 4};
    EXPECT_EQ(CurveOf(OneHertz(), values).points,
              (Points{{120, 142}, {120, 142}, {164, 98}, {208, 120}, {252, 55}, {296, 76}}));
}

TEST(MeanCurve, BeginsAtTheBottomBin) {
    const std::vector<double> values{0, 0, 0, 0, 1, 2, 3, 4, 5, 6};
    EXPECT_EQ(CurveOf(HalfHertzFromTwo(), values).points,
              (Points{{120, 142}, {120, 133}, {164, 124}, {208, 115}, {252, 107}, {296, 98}}));
}

TEST(MeanCurve, SubtractsTheMinimumBeforeItWeightsByFrequency) {
    const std::vector<double> values{1, 3, 2, 5, 4};
    EXPECT_EQ(CurveOf(OneHertz(Normalisation::ByF), values).points,
              (Points{{120, 142}, {120, 142}, {164, 98}, {208, 98}, {252, -119}, {296, -119}}));
    EXPECT_EQ(CurveOf(OneHertz(Normalisation::BySqrtF), values).points,
              (Points{{120, 142}, {120, 142}, {164, 98}, {208, 111}, {252, -8}, {296, 12}}));
}

TEST(MeanCurve, LogarithmsAndDecibelsChangeNothing) {
    const std::vector<double> values{1, 3, 2, 5, 4};
    const MeanCurve plain = CurveOf(OneHertz(), values);
    for (const Normalisation mode : {Normalisation::ByLnF, Normalisation::ByLog10F, Normalisation::Db}) {
        EXPECT_EQ(CurveOf(OneHertz(mode), values), plain) << static_cast<int>(mode);
    }
}

TEST(MeanCurve, CountsMissingValuesAsZero) {
    const std::vector<double> values{1, 3, 2};
    const Points points = CurveOf(OneHertz(), values).points;
    EXPECT_EQ(points[4], (owl::TPoint{252, 163})); // below the baseline: 0 lies under the minimum of 1
    EXPECT_EQ(points[5], (owl::TPoint{296, 163}));
}

TEST(MeanCurve, CutsRowsTowardZeroAboveAndBelowTheSlot) {
    const std::vector<double> values{1, -3, 2, 25, 4};
    const Points points = CurveOf(OneHertz(), values).points;
    EXPECT_EQ(points[2].y, 229);
    EXPECT_EQ(points[4].y, -380);
}

TEST(MeanCurve, AHugeValueStaysAPixel) {
    const std::vector<double> values{1, 1e300, 2, 5, 4};
    EXPECT_EQ(CurveOf(OneHertz(), values).points[2].y, 50 - 1000000);
}

TEST(MeanCurve, IsInterruptedWhereThereIsNoNumber) {
    const std::vector<double> values{1, 3, kNaN, 5, 4};
    const MeanCurve curve = CurveOf(OneHertz(), values);
    ASSERT_EQ(curve.points.size(), 6u);
    const auto stretches = curve.Stretches();
    ASSERT_EQ(stretches.size(), 2u);
    EXPECT_EQ(Points(stretches[0].begin(), stretches[0].end()), (Points{{120, 142}, {120, 142}, {164, 98}}));
    EXPECT_EQ(Points(stretches[1].begin(), stretches[1].end()), (Points{{252, 55}, {296, 76}}));
}

TEST(MeanCurve, OfNoNumbersHasNothingToJoin) {
    const std::vector<double> values(5, kNaN);
    EXPECT_TRUE(CurveOf(OneHertz(), values).Stretches().empty());
}

// --- markers

TEST(Markers, SitOneVertexBehindTheirBin) {
    const CurveGeometry geometry = HalfHertzFromTwo();
    const MeanCurve curve = CurveOf(geometry, std::vector<double>{0, 0, 0, 0, 1, 2, 3, 4, 5, 6});
    EXPECT_EQ(MarkerRect(curve, geometry.axis, 4), (owl::TRect{118, 140, 123, 145})); // the origin
    EXPECT_EQ(MarkerRect(curve, geometry.axis, 5), (owl::TRect{118, 131, 123, 136})); // vertex of bin 4
    EXPECT_EQ(MarkerRect(curve, geometry.axis, 8), (owl::TRect{250, 105, 255, 110})); // vertex of bin 7
}

TEST(Markers, TheTopBinsVertexHasNone) {
    const CurveGeometry geometry = HalfHertzFromTwo();
    const MeanCurve curve = CurveOf(geometry, std::vector<double>(9, 5.0));
    for (std::uint64_t bin = 4; bin <= 8; ++bin) {
        EXPECT_LT(MarkerPoint(geometry.axis, bin), curve.points.size() - 1) << bin;
    }
}

TEST(Markers, ThereAreNoneOutsideTheShownBinsOrWithoutANumber) {
    const CurveGeometry geometry = HalfHertzFromTwo();
    const MeanCurve curve = CurveOf(geometry, std::vector<double>{0, 0, 0, 0, kNaN, 2, 3, 4, 5, 6});
    EXPECT_EQ(MarkerRect(curve, geometry.axis, 3), std::nullopt);
    EXPECT_EQ(MarkerRect(curve, geometry.axis, 9), std::nullopt);
    EXPECT_EQ(MarkerRect(curve, geometry.axis, 5), std::nullopt); // stands on bin 4
    EXPECT_EQ(DropLineOf(geometry, curve, 5), std::nullopt);
}

TEST(DropLines, FallFromTheMarkersPointToTheBaseline) {
    const CurveGeometry geometry = HalfHertzFromTwo();
    const MeanCurve curve = CurveOf(geometry, std::vector<double>{0, 0, 0, 0, 1, 2, 3, 4, 5, 6});
    EXPECT_EQ(DropLineOf(geometry, curve, 4), (DropLine{{120, 142}, {120, 142}}));
    EXPECT_EQ(DropLineOf(geometry, curve, 7), (DropLine{{208, 115}, {208, 142}}));
}

} // namespace
