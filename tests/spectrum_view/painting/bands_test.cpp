// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/bands.h"

#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/painting/band_colors.h"
#include "tests/support/globals_guard.h"
#include "tests/support/small_recording.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;

/// 2 to 32 Hz in bins of 0.5 Hz.
constexpr FrequencyAxis kFromTwo{2, 32, 0.5, 4, 64};
constexpr owl::TRect kSlot{0, 0, 1000, 400};

PlotBand Band(double lo, double hi, std::uint64_t iLow, std::uint64_t iHigh) {
    return {lo, hi, iLow, iHigh, 0, {}};
}

TEST(BandShading, CoversThePlotsHeightBetweenTheBandsBins) {
    EXPECT_EQ(ShadingRect({100, 50, 300, 150}, {0, 32, 1, 0, 32}, Band(8, 13, 8, 13)),
              (owl::TRect{164, 55, 191, 142}));
}

TEST(BandShading, LiesAsManyBinsToTheRightOfTheCurveAsTheBottomBinsNumber) {
    const PlotBand alpha = Band(8, 13, 16, 26);
    EXPECT_EQ(ShadingRect(kSlot, kFromTwo, alpha), (owl::TRect{334, 20, 481, 368}));
    EXPECT_EQ(CurveX(kSlot, kFromTwo, 16), 276);
    EXPECT_EQ(CurveX(kSlot, kFromTwo, 20), 334); // 4 bins on
}

TEST(BandColoring, TakesBinsFromTheLowEdgeToBelowTheHighEdgesBin) {
    EXPECT_EQ(ColoredBins(kFromTwo, Band(8, 13, 16, 26)), (BinRange{16, 26}));
}

TEST(BandColoring, ABinBelowTheLowEdgeStaysOut) {
    // 8.2 Hz lies nearest to the bin of 8 Hz, which is below it.
    EXPECT_EQ(ColoredBins(kFromTwo, Band(8.2, 13, 16, 26)), (BinRange{17, 26}));
}

TEST(BandColoring, StaysInsideTheShownRange) {
    EXPECT_EQ(ColoredBins(kFromTwo, Band(0.5, 4, 1, 8)), (BinRange{4, 8}));
    EXPECT_EQ(ColoredBins(kFromTwo, Band(30, 45, 60, 90)), (BinRange{60, 65}));
    EXPECT_EQ(ColoredBins(kFromTwo, Band(0.5, 1, 1, 2)), (BinRange{4, 4}));
    EXPECT_EQ(ColoredBins(kFromTwo, Band(40, 45, 80, 90)), (BinRange{80, 80}));
}

TEST(PlotBands, AreTheDefinedOnesInTheColorsOfTheirPlaces) {
    const test::GlobalsGuard guard;
    const auto recording = test::SmallRecording(); // bins of 1 Hz up to 4 Hz
    SpectraMgr manager(recording.get(), nullptr);
    const SpectMacroResult analysis(test::SmallMacro(), recording.get(), nullptr);
    manager.GetBand(1).hi = manager.GetBand(1).lo + 0.01; // just not defined
    const auto bands = BandsOf(manager, analysis);
    ASSERT_EQ(bands.size(), 4u);
    EXPECT_EQ(bands[0], (PlotBand{0.5, 4, 1, 4, kBandColors[0], "Delta"}));
    EXPECT_EQ(bands[1], (PlotBand{8, 13, 4, 4, kBandColors[2], "Alpha"}));
    EXPECT_EQ(bands[3].name, "Gamma");
    EXPECT_EQ(bands[3].color, kBandColors[4]);
}

TEST(FrequencyAxis, TakesItsBinsFromTheAnalysis) {
    const auto recording = test::SmallRecording();
    const SpectMacroResult analysis(test::SmallMacro(), recording.get(), nullptr);
    EXPECT_EQ(AxisOf(analysis, 0.6, 9), (FrequencyAxis{0.6, 9, 1, 1, 4}));
}

TEST(FrequencyAxis, WithoutARangeOrResolutionIsNotDrawn) {
    EXPECT_TRUE(kFromTwo.IsDrawable());
    EXPECT_FALSE((FrequencyAxis{4, 4, 0.5, 8, 8}.IsDrawable()));
    EXPECT_FALSE((FrequencyAxis{0, 32, 0, 0, 0}.IsDrawable()));
}

TEST(FrequencyAxis, PlacesFrequenciesBetweenItsEnds) {
    EXPECT_EQ(FrequencyX(kSlot, kFromTwo, 2), 100);
    EXPECT_EQ(FrequencyX(kSlot, kFromTwo, 17), 540);
    EXPECT_EQ(FrequencyX(kSlot, kFromTwo, 32), 980);
}

} // namespace
