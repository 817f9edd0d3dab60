// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/render.h"

#include "host/review/app/module_library.h"
#include "host/review/cli/demo_recording.h"
#include "host/review/cli/exit_status.h"
#include "host/spectral_data/results/errors.h"
#include "tests/support/qt/recording_dc.h"
#include "tests/support/refusal.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace {

using namespace orvanta::review;
using orvanta::cli::UsageError;
using orvanta::spectral::NothingComputable;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

/// One minute of the demo and a request for a picture of it.
class RenderingTest : public testing::Test {
protected:
    RenderingTest() {
        orvanta::cli::DemoParameters parameters;
        parameters.minutes = 1;
        orvanta::cli::DemoSignal demo(parameters);
        request.analysis.file = folder.Path("demo.edf");
        orvanta::cli::WriteDemoRecording(request.analysis.file, demo);
        request.analysis.quiet = true;
        request.page.rows = 0;
        request.page.columns = 0;
        request.out = folder.Path("out.png");
    }

    std::vector<DrawnPlot> Draw() {
        Rendering rendering(request);
        page = rendering.Page();
        return rendering.Draw(module.Bridge(), dc);
    }
    std::vector<std::string> Traces() {
        std::vector<std::string> traces;
        for (const DrawnPlot& plot : Draw()) {
            traces.push_back(plot.trace);
        }
        return traces;
    }
    template <typename Failure>
    std::string Refusal() {
        return orvanta::test::RefusalOf<Failure>([this] { const Rendering rendering(request); });
    }

    orvanta::test::TempFolder folder;
    ModuleLibrary module{LibraryFolder()};
    orvanta::test::RecordingDC dc;
    RenderRequest request;
    SpectrumPage page;
};

TEST_F(RenderingTest, GivesTheGridCellsForAllPairsOfTheFirstBipolarMontage) {
    const std::vector<std::string> traces = Traces();
    EXPECT_EQ(page.rows, 4);
    EXPECT_EQ(page.columns, 5);
    ASSERT_THAT(traces, SizeIs(20));
    EXPECT_EQ(traces.front(), "Fp1-F7");
    EXPECT_NE(traces[17], "");
    EXPECT_EQ(traces[18], "");
}

TEST_F(RenderingTest, KeepsTheRowsAskedForAndAddsColumns) {
    request.page.rows = 3;
    EXPECT_THAT(Draw(), SizeIs(18));
    EXPECT_EQ(page.columns, 6);
}

TEST_F(RenderingTest, ShowsNoMoreThanTheGridAskedFor) {
    request.page.rows = 2;
    request.page.columns = 1;
    EXPECT_THAT(Traces(), ElementsAre("Fp1-F7", "F7-T7"));
}

TEST_F(RenderingTest, FillsTheSizeAskedForWithTheGrid) {
    request.page.rows = 1;
    request.page.columns = 2;
    request.width = 600;
    request.height = 312;
    const std::vector<DrawnPlot> plots = Draw();
    // The title takes a line of the standard font, 12 pixels.
    EXPECT_EQ(plots[0].slot, (owl::TRect{0, 0, 300, 300}));
    EXPECT_EQ(plots[1].slot, (owl::TRect{300, 0, 600, 300}));
}

TEST_F(RenderingTest, ShowsEveryElectrodeOnTheScalpAsRecorded) {
    request.page.layout = Layout::Mode::Scalp;
    const std::vector<DrawnPlot> plots = Draw();
    ASSERT_THAT(plots, SizeIs(19));
    EXPECT_EQ(plots[0].trace, "Fp1");
    EXPECT_THAT(plots,
                Each(testing::Field(&DrawnPlot::slot, testing::Property(&owl::TRect::IsEmpty, false))));
}

TEST_F(RenderingTest, TakesTheReferenceMontageForCoherenceOnTheScalp) {
    request.page.layout = Layout::Mode::Scalp;
    request.analysis.entity = "coherence";
    EXPECT_THAT(Traces(), testing::Contains(HasSubstr("Fp1-")));
}

TEST_F(RenderingTest, ShowsTheMontageAskedFor) {
    request.analysis.montage = "Average reference";
    request.page.layout = Layout::Mode::Scalp;
    EXPECT_THAT(Draw(), SizeIs(19));
}

TEST_F(RenderingTest, ShowsTheTitleUnlessItIsHidden) {
    Draw();
    EXPECT_THAT(dc.Texts(), testing::Contains(HasSubstr("Analyzed: ")));
    dc.Clear();
    request.page.title = false;
    Draw();
    EXPECT_THAT(dc.Texts(), testing::Not(testing::Contains(HasSubstr("Analyzed: "))));
}

TEST_F(RenderingTest, HidesTheNamesOfThePlots) {
    Draw();
    EXPECT_THAT(dc.Texts(), testing::Contains(HasSubstr("Fp1-F7")));
    dc.Clear();
    request.page.labels = false;
    Draw();
    EXPECT_THAT(dc.Texts(), testing::Not(testing::Contains(HasSubstr("Fp1-F7"))));
}

TEST_F(RenderingTest, DrawsOneMarkForEveryBinUnlessTheyAreHidden) {
    request.page.rows = 1;
    request.page.columns = 1;
    request.page.range = {0, 32};
    Draw();
    // Bins every half Hz up to 32 Hz; marks in a band are drawn over those of the curve.
    EXPECT_GE(dc.CallsOf("ellipse").size(), 64U);
    dc.Clear();
    request.page.points = false;
    Draw();
    EXPECT_THAT(dc.CallsOf("ellipse"), testing::IsEmpty());
}

TEST_F(RenderingTest, DrawsEveryModeDifferently) {
    std::set<std::vector<std::string>> drawings;
    for (const auto mode :
         {SPECT::Data::Mode::Mean, SPECT::Data::Mode::CSA, SPECT::Data::Mode::TimeFrequency}) {
        request.page.mode = mode;
        request.page.title = false; // numbers the analyses
        dc.Clear();
        Draw();
        EXPECT_FALSE(dc.Calls().empty());
        drawings.insert(dc.Calls());
    }
    EXPECT_THAT(drawings, SizeIs(3));
}

TEST_F(RenderingTest, CountsTimesByTheClock) {
    request.page.rows = 1;
    request.page.columns = 1;
    for (const auto mode : {SPECT::Data::Mode::CSA, SPECT::Data::Mode::TimeFrequency}) {
        request.page.mode = mode;
        dc.Clear();
        Draw();
        EXPECT_THAT(dc.Texts(), testing::Contains(testing::StartsWith("09:00")));
    }
}

TEST_F(RenderingTest, ShowsTheFrequenciesAskedFor) {
    request.page.rows = 1;
    request.page.columns = 1;
    request.page.range = {10, 20};
    Draw();
    EXPECT_THAT(dc.Texts(), testing::IsSupersetOf({"10.0", "20.0"}));
    EXPECT_THAT(dc.Texts(), testing::Not(testing::Contains("0.0")));
}

TEST_F(RenderingTest, RefusesAGridOfAMontageWithoutPairs) {
    request.analysis.montage = "Average reference";
    EXPECT_EQ(Refusal<NothingComputable>(),
              request.analysis.file +
                  ": the grid shows pairs of electrodes, and the montage \"Average reference\" has "
                  "none (choose a bipolar --montage, or --layout scalp)");
}

TEST_F(RenderingTest, RefusesAScalpOfAMontageOfPairs) {
    request.analysis.montage = "Longitudinal bipolar";
    request.page.layout = Layout::Mode::Scalp;
    EXPECT_THAT(Refusal<NothingComputable>(), HasSubstr("choose a referential --montage, or --layout grid"));
}

TEST_F(RenderingTest, RefusesCoherenceOverTime) {
    request.analysis.entity = "coherence";
    request.page.mode = SPECT::Data::Mode::CSA;
    EXPECT_EQ(Refusal<UsageError>(), "--mode: coherence is computed over all epochs and has no course over "
                                     "time (choose --mode mean)");
}

TEST_F(RenderingTest, RefusesFrequenciesThatAreNoRange) {
    request.page.range = {12, 12};
    EXPECT_EQ(Refusal<UsageError>(),
              "--bottom 12.00 and --top 12.00 Hz: no range (let the top be the higher one)");
}

TEST_F(RenderingTest, RefusesFrequenciesAboveHalfTheRate) {
    request.page.range = {128, 200};
    EXPECT_EQ(Refusal<UsageError>(),
              "--bottom 128.0 Hz: above half the recording's rate, 128.0 Hz (choose a lower one)");
}

TEST_F(RenderingTest, RefusesToReplaceTheRecording) {
    request.out = request.analysis.file;
    EXPECT_THAT(Refusal<UsageError>(), HasSubstr("demo.edf: is read by this command"));
}

TEST_F(RenderingTest, ComparesWithTheSecondaryAnalysis) {
    SpectraMacro macro;
    macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByDuration);
    ASSERT_EQ(macro.SaveAs(folder.Path("start.smx")), 0);
    request.secondary = folder.Path("start.smx");
    request.pThreshold = 0.01;
    request.ratio = true;
    Rendering rendering(request);
    ASSERT_NE(rendering.Manager().GetSecondary(), nullptr);
    EXPECT_NE(rendering.Manager().GetSecondary(), rendering.Manager().GetMain());
    EXPECT_EQ(rendering.Manager().GetPThreshold(), 0.01);
    EXPECT_TRUE(rendering.Manager().GetShowTTest());
    EXPECT_TRUE(rendering.Manager().GetShowRatio());
}

} // namespace
