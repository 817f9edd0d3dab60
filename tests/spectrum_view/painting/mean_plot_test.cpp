// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/mean_plot.h"

#include "spectrum_view/painting/band_colors.h"
#include "tests/spectrum_view/painting/sample_plots.h"
#include "tests/support/qt/recording_dc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numbers>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using Calls = std::vector<std::string>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr owl::TRect kSlot{100, 50, 300, 150};

/// Bins of 1 Hz from 0 to 4 Hz in one band from 1 to 3 Hz; nothing switched on.
PlotInput SmallPlot() {
    PlotInput plot;
    plot.frame = {kSlot, "", "", "", {}, {1, 5, 0}, {false, false, false, false, false}};
    plot.curves.push_back({{0, 4, 1, 0, 4},
                           {{1, 3, 1, 3, kBandColors[0], "Low"}},
                           {1, 3, 2, 5, 4},
                           {1, 1, 1, 1, 1},
                           owl::Rgb(0, 0, 200)});
    return plot;
}

Calls Painted(const PlotInput& plot) {
    test::RecordingDC dc;
    PaintMeanPlot(dc, plot);
    return dc.Calls();
}

Calls Painted(const PlotInput& plot, std::initializer_list<std::string_view> kinds) {
    test::RecordingDC dc;
    PaintMeanPlot(dc, plot);
    return dc.CallsOf(kinds);
}

/// The calls from the first \p from on, \p count of them.
Calls From(const Calls& calls, const std::string& from, std::ptrdiff_t count) {
    const auto first = std::find(calls.begin(), calls.end(), from);
    return {first, first + std::min(count, calls.end() - first)};
}

const Calls kFrameOnly{"fill 100,50,300,150 #FFFFFF", "clip 100,50,300,150", "frame 100,50,300,150 #C8C8C8",
                       "font \"Verdana\" 12",         "align left",          "noclip"};

// --- the frame

TEST(MeanPlot, OfARangeOfZeroIsAnEmptyFrame) {
    PlotInput plot = SmallPlot();
    plot.frame.vertical = {3, 3, 0};
    EXPECT_EQ(Painted(plot), kFrameOnly);
}

TEST(MeanPlot, WithoutASpectrumIsAnEmptyFrame) {
    PlotInput plot = SmallPlot();
    plot.curves.clear();
    EXPECT_EQ(Painted(plot), kFrameOnly);
}

TEST(MeanPlot, OfTheSameTopAndBottomFrequencyIsAnEmptyFrame) {
    PlotInput plot = SmallPlot();
    plot.curves[0].axis = {4, 4, 1, 4, 4};
    EXPECT_EQ(Painted(plot), kFrameOnly);
}

TEST(MeanPlot, SaysWhyThereIsNothingToShow) {
    PlotInput plot = SmallPlot();
    plot.frame.notice = "No values";
    EXPECT_EQ(Painted(plot, {"textcolor", "text", "polyline"}),
              (Calls{"textcolor #3C3C3C", "textcolor #6E6E6E", "text 173,94 left \"No values\""}));
}

// --- what is drawn

TEST(MeanPlot, ShadesBandsInTheirColorMixedTwiceWithWhite) {
    EXPECT_EQ(From(Painted(SmallPlot()), "brush #FFDFDF", 3),
              (Calls{"brush #FFDFDF", "pen #FFDFDF 1 solid", "rectangle 164,55,252,142"}));
}

TEST(MeanPlot, DrawsTheCurveFromTheOriginWithAPenOfTwo) {
    EXPECT_EQ(From(Painted(SmallPlot()), "pen #0000C8 2 solid", 2),
              (Calls{"pen #0000C8 2 solid", "polyline 120,142 120,142 164,98 208,120 252,55 296,76"}));
}

TEST(MeanPlot, InterruptsTheCurveWhereThereIsNoNumber) {
    PlotInput plot = SmallPlot();
    plot.curves[0].values[2] = kNaN;
    EXPECT_EQ(Painted(plot, {"polyline"}),
              (Calls{"polyline 120,142 120,142 164,98", "polyline 252,55 296,76"}));
}

TEST(MeanPlot, LogarithmsAndDecibelsLeaveTheCurveAsItIs) {
    const Calls plain = Painted(SmallPlot());
    for (const auto mode :
         {SPECT::Normalisation::ByLnF, SPECT::Normalisation::ByLog10F, SPECT::Normalisation::Db}) {
        PlotInput plot = SmallPlot();
        plot.normalisation = mode;
        EXPECT_EQ(Painted(plot), plain) << static_cast<int>(mode);
    }
    PlotInput weighted = SmallPlot();
    weighted.normalisation = SPECT::Normalisation::ByF;
    EXPECT_EQ(Painted(weighted, {"polyline"}),
              Calls{"polyline 120,142 120,142 164,98 208,98 252,-119 296,-119"});
}

TEST(MeanPlot, PutsPointsOneVertexBehindThenAgainInTheBandsColor) {
    PlotInput plot = SmallPlot();
    plot.frame.flags.points = true;
    const Calls calls = Painted(plot, {"pen", "brush", "ellipse"});
    EXPECT_EQ(
        From(calls, "brush #0000C8", 10),
        (Calls{"brush #0000C8", "ellipse 118,140,123,145", "ellipse 118,140,123,145",
               "ellipse 162,96,167,101", "ellipse 206,118,211,123", "ellipse 250,53,255,58",
               "pen #0000C8 1 solid", "brush #FF8080", "ellipse 118,140,123,145", "ellipse 162,96,167,101"}));
}

TEST(MeanPlot, DropsDottedLinesToTheBaselineThoseOfABandInItsColor) {
    PlotInput plot = SmallPlot();
    plot.frame.flags.lines = true;
    EXPECT_EQ(
        From(Painted(plot), "pen #0000C8 1 dotted", 7),
        (Calls{"pen #0000C8 1 dotted", "line 120,142 120,142", "line 208,120 208,142", "line 252,55 252,142",
               "pen #FF8080 1 dotted", "line 120,142 120,142", "line 164,98 164,142"}));
}

TEST(MeanPlot, DropsEachLineOfBandsThatOverlapOnceInTheTracesColorAtMost) {
    PlotInput plot = SmallPlot();
    plot.frame.flags.lines = true;
    plot.curves[0].bands = {{2, 4, 2, 4, kBandColors[1], "High"}, {1, 3, 1, 3, kBandColors[0], "Low"}};
    EXPECT_EQ(From(Painted(plot), "pen #0000C8 1 dotted", 9),
              (Calls{"pen #0000C8 1 dotted", "line 120,142 120,142", "line 252,55 252,142",
                     "pen #3D6DFF 1 dotted", "line 164,98 164,142", "line 208,120 208,142",
                     "pen #FF8080 1 dotted", "line 120,142 120,142", "line 164,98 164,142"}));
}

TEST(MeanPlot, FillsMeanAndSdCutAtTheBaseline) {
    PlotInput plot = SmallPlot();
    plot.frame.flags.sd = true;
    EXPECT_EQ(From(Painted(plot), "brush #BFBFF1", 3),
              (Calls{"brush #BFBFF1", "pen #BFBFF1 1 none",
                     "polygon 120,120 164,76 208,98 252,34 296,55 296,98 252,76 208,142 164,120 120,142"}));
}

TEST(MeanPlot, AreasEndWithThePlotAndCurvesWithTheSlot) {
    EXPECT_EQ(
        Painted(SmallPlot(), {"clip", "noclip", "rectangle", "polyline"}),
        (Calls{"clip 100,50,300,150", "clip 120,55,297,143", "rectangle 164,55,252,142",
               "clip 100,50,300,150", "polyline 120,142 120,142 164,98 208,120 252,55 296,76", "noclip"}));
}

TEST(MeanPlot, MarksBinsBelowTheThresholdUnderTheBaseline) {
    PlotInput plot = SmallPlot();
    plot.p = {0.01, 0.05, kNaN, 0.04, 0.5};
    EXPECT_EQ(From(Painted(plot), "brush #282828", 4),
              (Calls{"brush #282828", "pen #282828 1 none", "polygon 120,144 122,145 118,145",
                     "polygon 252,144 254,145 250,145"}));
}

TEST(MeanPlot, DrawsTheRatioInStepsAboutALineOfOne) {
    PlotInput plot = SmallPlot();
    plot.ratio = {1, 2, kNaN, 0.5, 1};
    EXPECT_EQ(
        From(Painted(plot), "pen #8C8C8C 1 solid", 5),
        (Calls{"pen #8C8C8C 1 solid", "line 120,124 296,124", "pen #464646 1 solid",
               "polyline 120,124 142,124 142,107 186,107", "polyline 230,133 274,133 274,124 296,124"}));
}

TEST(MeanPlot, DrawsTheFirstCurveOverTheSecondAndBothSdBandsBelow) {
    PlotInput plot = SmallPlot();
    plot.frame.flags.sd = true;
    plot.curves.push_back(plot.curves[0]);
    plot.curves[1].color = owl::Rgb(200, 0, 0);
    const Calls calls = Painted(plot, {"pen", "polygon", "polyline"});
    const Calls pens{calls[1], calls[3], calls[5], calls[7]};
    EXPECT_EQ(pens, (Calls{"pen #F1BFBF 1 none", "pen #BFBFF1 1 none", "pen #C80000 2 solid",
                           "pen #0000C8 2 solid"}));
}

TEST(MeanPlot, DrawsShadingSdCurvePointsDropLinesMarksRatioAndAxesInThisOrder) {
    PlotInput plot = test::ComparedPlot({0, 0, 1000, 600});
    plot.curves.pop_back();
    const Calls calls = Painted(plot);
    const auto at = [&calls](const std::string& start) {
        return std::find_if(calls.begin(), calls.end(),
                            [&](const std::string& call) { return call.starts_with(start); }) -
               calls.begin();
    };
    const std::vector<std::ptrdiff_t> order{at("fill 0,0,1000,600"),
                                            at("clip 0,0,1000,600"),
                                            at("frame"),
                                            at("rectangle"),
                                            at("polygon"),
                                            at("polyline"),
                                            at("ellipse"),
                                            at("pen #0046A0 1 dotted"),
                                            at("brush #282828"),
                                            at("pen #464646 1 solid"),
                                            at("pen #6E6E6E"),
                                            at("text "),
                                            at("noclip")};
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end())) << testing::PrintToString(order);
    EXPECT_EQ(order.back() + 1, static_cast<std::ptrdiff_t>(calls.size()));
    EXPECT_EQ(std::adjacent_find(order.begin(), order.end()), order.end());
}

// --- axes and texts

TEST(MeanPlot, NumbersItsAxesWithOneDecimal) {
    test::RecordingDC dc;
    PaintMeanPlot(dc, test::RestingPlot({0, 0, 500, 300}));
    EXPECT_EQ(dc.Texts(), (Calls{"0.0", "5.0", "10.0", "15.0", "20.0", "25.0", "30.0", "Hz", "0.0", "5.0",
                                 "10.0", "15.0", "20.0", "O1 (µV²/Hz)"}));
}

TEST(MeanPlot, NumbersPhaseInRadiansFromMinusPiToPi) {
    PlotInput plot = test::RestingPlot({0, 0, 500, 300});
    plot.frame.unit = "";
    plot.frame.label = "O1";
    plot.frame.vertical = {-std::numbers::pi, std::numbers::pi, 4};
    test::RecordingDC dc;
    PaintMeanPlot(dc, plot);
    const auto& texts = dc.Texts();
    EXPECT_EQ(Calls(texts.begin() + 8, texts.end()), (Calls{"-3.1", "-1.6", "0.0", "1.6", "3.1", "O1"}));
}

TEST(MeanPlot, ExplainsMarksRatioAndWeightOnlyWhereThereAreSome) {
    PlotInput plot = test::ComparedPlot({0, 0, 500, 300});
    plot.normalisation = SPECT::Normalisation::BySqrtF;
    test::RecordingDC dc;
    PaintMeanPlot(dc, plot);
    const auto& texts = dc.Texts();
    EXPECT_EQ(Calls(texts.end() - 5, texts.end()), (Calls{"1", "O1 (µV²/Hz)", "× √f", "p < 0.05", "Ratio"}));
}

TEST(MeanPlot, LeavesOutTheTicksUnderMarks) {
    PlotInput plot = SmallPlot();
    plot.p = {1, 1, 0.01, 1, 1}; // at 208
    const Calls lines = Painted(plot, {"line"});
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "line 208,143 208,144"), 0);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "line 120,143 120,144"), 1);
}

} // namespace
