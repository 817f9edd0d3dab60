// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/traces/mean_plots.h"

#include "tests/spectrum_view/traces/trace_fixture.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using SPECT::Entity::Type;

/// Five bipolar channels of a small recording, bins of 1 Hz up to 4 Hz; entity power.
class MeanPlots : public test::TraceFixture {
protected:
    MeanPlots() {
        UseFiveBipolarChannels();
        main = Add();
        display.range = {0, 4};
    }
    std::vector<PlotInput> Plots(std::uint64_t firstTrace = 0, const GridSize& grid = {1, 2}) {
        list = BipolarList(manager, *recording, firstTrace, grid);
        return MeanPlotsOf({manager, view, display, font, "Quotient"}, std::as_const(list).Entries(manager));
    }
    std::vector<double> Mean(std::size_t channel) const {
        std::vector<double> values;
        main->GetSpectrum(Channel(channel))->GetSpect(values);
        return values;
    }
    /// Largest mean of the channels in bins 0 to 4.
    double Largest(std::initializer_list<std::size_t> channels) const {
        double largest = 0;
        for (const std::size_t channel : channels) {
            for (const double value : Mean(channel)) {
                largest = std::max(largest, value);
            }
        }
        return largest;
    }
    SpectMacroResult* Compare() {
        SpectMacroResult* secondary = Add();
        manager.SetSecondary(secondary);
        return secondary;
    }

    ViewState view;
    DisplaySettings display;
    owl::TFont font{"Verdana", 11, false, false};
    TraceList list;
    SpectMacroResult* main = nullptr;
};

TEST_F(MeanPlots, ShowTheMeanOfEachTrace) {
    const auto plots = Plots();
    ASSERT_EQ(plots.size(), 2u);
    ASSERT_EQ(plots[1].curves.size(), 1u);
    EXPECT_EQ(plots[1].curves[0].values, Mean(1));
    EXPECT_EQ(plots[1].curves[0].axis, (FrequencyAxis{0, 4, 1, 0, 4}));
    EXPECT_EQ(plots[1].curves[0].bands, BandsOf(manager, *main));
    EXPECT_EQ(plots[1].frame.label, "B (µV²/Hz) ");
    EXPECT_EQ(plots[1].frame.unit, "µV²/Hz");
    EXPECT_EQ(plots[1].frame.font, font);
}

TEST_F(MeanPlots, ASlotWithoutASpectrumHasNoCurveLabelOrRange) {
    const auto plots = Plots(4);
    EXPECT_EQ(plots[0].curves.size(), 1u);
    EXPECT_TRUE(plots[1].curves.empty());
    EXPECT_EQ(plots[1].frame.label, "");
    EXPECT_FALSE(plots[1].frame.vertical.IsDrawable());
    manager.SetMeasEntity(Type::Coherence); // whose range is fixed
    EXPECT_FALSE(Plots(4)[1].frame.vertical.IsDrawable());
}

TEST_F(MeanPlots, ATraceOfABadElectrodeKeepsItsNameAndSaysThatItHasNoNumbers) {
    EXPECT_EQ(Plots()[0].frame.notice, "");
    test::SensorOf(*recording, "Cz")->SetBad(true); // of B and C, not of A
    main->Compute(nullptr);
    EXPECT_EQ(Plots()[0].frame.notice, "");
    EXPECT_EQ(Plots()[1].frame.notice, "n/a");
    EXPECT_EQ(Plots()[1].frame.label, "B (µV²/Hz) ");
}

TEST_F(MeanPlots, TheRangeIsThatOfTheTraceOrOfThePage) {
    EXPECT_EQ(Plots()[0].frame.vertical.max, Largest({0}));
    EXPECT_EQ(Plots()[1].frame.vertical.max, Largest({1}));
    view.commonScale = true;
    EXPECT_EQ(Plots()[0].frame.vertical.max, Largest({0, 1})); // not C, D and E of the next pages
    EXPECT_EQ(Plots()[0].frame.vertical, Plots()[1].frame.vertical);
}

TEST_F(MeanPlots, TheRangeTakesInTheSecondarySpectrum) {
    SpectraMacro macro = test::SmallMacro("Rectangular", 0);
    auto* secondary = new SpectMacroResult(macro, recording.get(), nullptr);
    secondary->Compute(nullptr);
    manager.push_back(secondary);
    const double alone = Plots()[0].frame.vertical.max;
    manager.SetSecondary(secondary);
    std::vector<double> other;
    secondary->GetSpectrum(Channel(0))->GetSpect(other);
    const double largest = *std::max_element(other.begin(), other.end());
    EXPECT_EQ(Plots()[0].frame.vertical.max, std::max(alone, largest));
}

TEST_F(MeanPlots, TheRangeFollowsTheEntitysRecordAndTheGain) {
    display.gain = 1.5;
    EXPECT_EQ(Plots()[0].frame.vertical.max, Largest({0}) * 1.5);
    view.scales["Power"] = {1, 70, 0, 32, false};
    EXPECT_EQ(Plots()[0].frame.vertical, (VerticalRange{1, 70, 0}));
}

TEST_F(MeanPlots, TheDeviationComesOnlyWhenShown) {
    EXPECT_TRUE(Plots()[0].curves[0].sd.empty());
    display.showSd = true;
    std::vector<double> sd;
    main->GetSpectrum(Channel(0))->GetSpectSD(sd);
    EXPECT_EQ(Plots()[0].curves[0].sd, sd);
}

TEST_F(MeanPlots, PhaseIsInDegreesWhereAskedFor) {
    manager.SetMeasEntity(Type::Phase);
    const std::vector<double> radians = Mean(0);
    const PlotInput inDegrees = Plots()[0];
    ASSERT_GT(std::abs(radians[2]), 0.1);
    EXPECT_DOUBLE_EQ(inDegrees.curves[0].values[2], radians[2] * 57.29577951308232);
    EXPECT_EQ(inDegrees.frame.unit, "°");
    EXPECT_EQ(inDegrees.frame.vertical, (VerticalRange{-180, 180, 4}));
    display.degrees = false;
    EXPECT_EQ(Plots()[0].curves[0].values[2], radians[2]);
    EXPECT_EQ(Plots()[0].frame.unit, "rad");
}

TEST_F(MeanPlots, AComparisonHasASecondCurve) {
    Compare();
    manager.SetPThreshold(0.01);
    const PlotInput plot = Plots()[0];
    ASSERT_EQ(plot.curves.size(), 2u);
    EXPECT_EQ(plot.curves[1].values, Mean(0)); // the same settings
    EXPECT_EQ(plot.pThreshold, 0.01);
    EXPECT_TRUE(plot.p.empty()); // switched off
    EXPECT_TRUE(plot.ratio.empty());
}

TEST_F(MeanPlots, TestAndRatioComePerBin) {
    Compare();
    manager.SetShowTTest(true);
    manager.SetShowRatio(true);
    const PlotInput plot = Plots()[0];
    ASSERT_EQ(plot.p.size(), 5u);
    EXPECT_EQ(plot.p[2], manager.GetP(Channel(0))[2]);
    EXPECT_EQ(plot.ratio,
              std::vector<double>(manager.GetRatio(Channel(0)), manager.GetRatio(Channel(0)) + 5));
}

TEST_F(MeanPlots, TheRatioHasTheNameItIsGiven) {
    EXPECT_EQ(Plots()[0].ratioName, "Quotient");
}

TEST_F(MeanPlots, ASecondaryOfAnotherResolutionIsDrawnOnItsOwnBins) {
    SpectMacroResult* secondary = Compare();
    secondary->SetFFTSeconds(2);
    secondary->Compute(nullptr);
    const PlotInput plot = Plots()[0];
    EXPECT_EQ(plot.curves[1].axis, (FrequencyAxis{0, 4, 0.5, 0, 8}));
    EXPECT_EQ(plot.curves[1].values.size(), 9u);
}

TEST_F(MeanPlots, CurvesHaveTheColorsOfTheirSettings) {
    main->GetMacro().Color = owl::Rgb(10, 20, 30);
    Compare()->GetMacro().Color = owl::Rgb(40, 50, 60);
    EXPECT_EQ(Plots()[0].curves[0].color, owl::Rgb(10, 20, 30));
    EXPECT_EQ(Plots()[0].curves[1].color, owl::Rgb(40, 50, 60));
}

TEST_F(MeanPlots, EqualColorsAreToldApart) {
    Compare();
    const auto curves = Plots()[0].curves;
    EXPECT_EQ(curves[0].color, main->GetMacro().Color);
    EXPECT_NE(curves[1].color, curves[0].color);
}

TEST_F(MeanPlots, FlagsAndNormalisationAreThoseOfTheDisplay) {
    display.showPoints = display.showLines = display.showLabels = display.showAxesText = false;
    display.showSd = true;
    display.normalisation = SPECT::Normalisation::BySqrtF;
    const PlotInput plot = Plots()[0];
    EXPECT_EQ(plot.frame.flags, (PlotFlags{false, false, true, false, false}));
    EXPECT_EQ(plot.normalisation, SPECT::Normalisation::BySqrtF);
}

} // namespace
