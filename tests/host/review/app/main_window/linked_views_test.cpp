// SPDX-License-Identifier: GPL-3.0-or-later
// What one view points at, the others show.
#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/epoch_shades.h"
#include "host/toolkit/appearance.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include "spectra_contract/spectrum.h"

#include <QComboBox>
#include <QTest>

#include <cmath>

namespace {

using namespace orvanta;
using review::Shade;
using review::TraceView;
using review::ViewKind;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::int64_t kSecond = 1'000'000'000;

XTimeInterval Seconds(double begin, double end) {
    const auto at = [](double s) { return XTime::FromNanoseconds(static_cast<std::int64_t>(s * kSecond)); };
    return {at(begin), at(end)};
}

TEST(CoveredStretches, JoinWhatOverlapsOrTouches) {
    XTimeList list;
    for (const XTimeInterval& interval :
         {Seconds(4, 6), Seconds(0, 2), Seconds(1, 3), Seconds(3, 3.5), Seconds(4.5, 5)}) {
        list.push_back(interval);
    }
    EXPECT_THAT(review::Covered(list), ElementsAre(Seconds(0, 3.5), Seconds(4, 6)));
    EXPECT_THAT(review::Covered({}), IsEmpty());
}

class LinkedViews : public test::WorkbenchFixture {
protected:
    LinkedViews() { Start(Demo()); }

    TraceView& Traces() const {
        return static_cast<TraceView&>(*bench->Middle().Views().ViewOf(ViewKind::Traces));
    }
    SpectMacroResult& AddStates(const char* label, std::uint32_t color = 0x00FF0000) const {
        SpectraMacro macro;
        macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
        macro.SetAcceptStateList({label});
        macro.Color = color;
        return AddAnalysis(macro);
    }
    std::vector<Shade> Shades() const {
        return review::EpochShades(Analyses(), Recording(), owl::AppearancePalette(false));
    }
};

TEST_F(LinkedViews, NothingIsShadedBeforeTheAnalysisIsComputed) {
    AddStates("eyes open");
    EXPECT_THAT(Shades(), IsEmpty());
}

TEST_F(LinkedViews, TheEpochsOfBothAnalysesAreShaded) {
    AddStates("eyes open", 0x000000FF);                             // red
    Analyses().SetSecondary(&AddStates("eyes closed", 0x00FF0000)); // blue
    bench->GetAnalyses().Recompute();
    // Hue and saturation of the colour, 42 % light on white, so that it is seen through its thin layer.
    EXPECT_THAT(Shades(),
                ElementsAre(Shade{Seconds(0, 30), 0x000000D6,
                                  "Main analysis: " + Analyses().GetMain()->GetName(), false},
                            Shade{Seconds(30, 60), 0x00D60000,
                                  "Secondary analysis: " + Analyses().GetSecondary()->GetName(), true}));
}

TEST_F(LinkedViews, TheSecondaryAnalysisIsToldApartWhenBothHaveOneColour) {
    AddStates("eyes open");
    Analyses().SetSecondary(&AddStates("eyes closed"));
    bench->GetAnalyses().Recompute();
    ASSERT_THAT(Shades(), SizeIs(2));
    EXPECT_NE(Shades()[0].color, Shades()[1].color);
}

TEST_F(LinkedViews, ShadesFollowTheAnalyses) {
    const QPalette palette = owl::AppearancePalette(false);
    const review::AnalysisState none = review::AnalysisStateOf(Analyses(), palette);
    AddStates("eyes open");
    EXPECT_EQ(review::AnalysisStateOf(Analyses(), palette), none);
    bench->GetAnalyses().Recompute();
    const review::AnalysisState computed = review::AnalysisStateOf(Analyses(), palette);
    EXPECT_NE(computed, none);
    EXPECT_NE(review::AnalysisStateOf(Analyses(), owl::AppearancePalette(true)), computed);
}

TEST_F(LinkedViews, PointingAtATimeMovesTheTraces) {
    bench->Middle().PointAtTime(XTime::FromNanoseconds(45 * kSecond));
    const XTimeInterval page = Traces().GetPage();
    EXPECT_LE(*page.GetBeginPtr(), XTime::FromNanoseconds(45 * kSecond));
    EXPECT_GE(*page.GetEndPtr(), XTime::FromNanoseconds(45 * kSecond));
}

TEST_F(LinkedViews, PointingAtAChannelSelectsItInTheTraces) {
    bench->Middle().PointAtChannel("Cz");
    QTest::keyClick(&Traces(), Qt::Key_B); // marks what is selected
    EXPECT_TRUE(Recording().GetTraceInfo()->FindSensor("Cz")->IsBad());
    bench->Middle().PointAtChannel("O1");
    QTest::keyClick(&Traces(), Qt::Key_B);
    EXPECT_TRUE(Recording().GetTraceInfo()->FindSensor("O1")->IsBad());
    EXPECT_FALSE(Recording().GetTraceInfo()->FindSensor("O2")->IsBad());
}

/// Traces, spectrum and maps, and an analysis of 20 s from where the traces stand.
class Selections : public LinkedViews {
protected:
    Selections() {
        SpectraMacro macro;
        macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByDuration);
        macro.SetFixedDurationSec(20);
        Analyses().SetMain(&AddAnalysis(macro));
        bench->GetAnalyses().Recompute();
        test::WaitUntilIdle();
    }
    XTime Begin() const { return *Traces().GetPage().GetBeginPtr(); }
    TheChild& View(ViewKind kind) const { return *bench->Middle().Views().ViewOf(kind); }
    void Run(ViewKind view, unsigned command) const {
        View(view).RunCommand(command);
        test::WaitUntilIdle();
    }
    bool Offers(ViewKind view, unsigned command) const {
        QMetaObject::invokeMethod(&View(view).GetMenu(), "aboutToShow");
        return View(view).GetMenu().Item(command)->isEnabled();
    }
    static constexpr unsigned kOfSpectrum = 14476, kOfMaps = 14190, kCartoon = 14170;
};

TEST_F(Selections, MoveTheTracesFromTheSpectrumView) {
    ASSERT_EQ(Begin(), XTime());
    EXPECT_TRUE(Offers(ViewKind::Spectrum, kOfSpectrum));
    Run(ViewKind::Spectrum, kOfSpectrum);
    EXPECT_EQ(Begin(), XTime::FromNanoseconds(20 * kSecond));
    Run(ViewKind::Spectrum, kOfSpectrum);
    EXPECT_EQ(Begin(), XTime::FromNanoseconds(40 * kSecond));
}

TEST_F(Selections, MoveTheTracesFromTheMapsAlsoInACartoon) {
    EXPECT_TRUE(Offers(ViewKind::Maps, kOfMaps));
    Run(ViewKind::Maps, kOfMaps);
    EXPECT_EQ(Begin(), XTime::FromNanoseconds(20 * kSecond));
    Run(ViewKind::Maps, kCartoon);
    EXPECT_TRUE(Offers(ViewKind::Maps, kOfMaps));
    Run(ViewKind::Maps, kOfMaps);
    EXPECT_EQ(Begin(), XTime::FromNanoseconds(40 * kSecond));
}

TEST_F(Selections, MoveTheTracesByTheMenuWhileTheyHaveTheFocus) {
    bench->GetViews().Activate(ViewKind::Traces);
    QAction& next = Item("analysisNextSelection");
    Opens("menuAnalysis");
    EXPECT_TRUE(next.isEnabled());
    next.trigger();
    EXPECT_EQ(Begin(), XTime::FromNanoseconds(20 * kSecond));
    EXPECT_TRUE(Analyses().GetMain()->IsComputed());
    next.trigger();
    next.trigger();
    EXPECT_EQ(Begin(), XTime::FromNanoseconds(40 * kSecond)) << "the last of a minute";
    EXPECT_EQ(bench->Window().ShownText(), "There is no later selection.");
}

TEST_F(LinkedViews, AnAnalysisOfEverythingHasNoNextSelection) {
    EXPECT_FALSE(Item("analysisNextSelection").isEnabled()) << "there is no analysis";
    AddAnalysis();
    bench->GetAnalyses().Recompute();
    Opens("menuAnalysis");
    EXPECT_FALSE(Item("analysisNextSelection").isEnabled());
}

TEST_F(LinkedViews, ABadElectrodeLeavesTheAnalysisAtOnce) {
    AddAnalysis();
    bench->GetAnalyses().Recompute();
    const SensorType* cz = Recording().GetTraceInfo()->FindSensor("Cz");
    ASSERT_GT(Analyses().GetMain()->GetSpectrum(cz)->GetValue(5), 0);
    bench->Middle().PointAtChannel("Cz");
    QTest::keyClick(&Traces(), Qt::Key_B);
    test::WaitUntilIdle();
    EXPECT_TRUE(std::isnan(Analyses().GetMain()->GetSpectrum(cz)->GetValue(5)));
}

TEST_F(LinkedViews, PointingDoesNothingWithoutTheTraces) {
    bench->GetViews().Hide(ViewKind::Traces);
    bench->Middle().PointAtTime(XTime::FromNanoseconds(45 * kSecond));
    bench->Middle().PointAtChannel("Cz");
    EXPECT_FALSE(bench->GetViews().IsShown(ViewKind::Traces));
}

TEST_F(LinkedViews, AViewThatOpensNamesTheMontageInUse) {
    AddAnalysis();
    bench->GetAnalyses().Show(ViewKind::Spectrum);
    const TheChild& spectrum = *bench->Middle().Views().ViewOf(ViewKind::Spectrum);
    EXPECT_EQ(spectrum.GetToolBar().findChild<QComboBox*>()->currentText(), "As recorded");
}

TEST_F(LinkedViews, AMontageChosenAnywhereIsTheOneOfAllViews) {
    AddAnalysis();
    bench->GetAnalyses().Recompute();
    ChangeMontage(1);
    test::WaitUntilIdle();
    EXPECT_EQ(Analyses().GetMain()->GetMontage().GetName(), "Longitudinal bipolar");
    TheChild& spectrum = *bench->Middle().Views().ViewOf(ViewKind::Spectrum);
    EXPECT_EQ(spectrum.GetToolBar().findChild<QComboBox*>()->currentText(), "Longitudinal bipolar");
}

TEST_F(LinkedViews, SaysThatChangedEventsAreNotInTheAnalysis) {
    AddStates("eyes open");
    bench->GetAnalyses().Recompute();
    Events().Add({"eyes open", EventClass::State, Seconds(40, 50)});
    EXPECT_EQ(bench->Window().ShownText(), "The events have changed since the analysis was computed. Choose "
                                           "Recompute to take them in.")
        << SpectMacroResult(Analyses().GetMain()->GetMacro(), &Recording(), nullptr).GetFFTCount()
        << " epochs, then " << Analyses().GetMain()->GetFFTCount() << ", events "
        << Recording().GetEventsManager()->GetEvents().size();
    Events().Undo();
}

TEST_F(LinkedViews, TellsOfTheAnalysisAnewWhenItIsComputedAnew) {
    AddStates("eyes open");
    bench->GetAnalyses().Recompute();
    EXPECT_EQ(bench->Window().ShownText(), "Analyzed: 29 epochs, 30.0 s");
    Events().Add({"eyes open", EventClass::State, Seconds(40, 50)});
    bench->GetAnalyses().Recompute();
    EXPECT_EQ(bench->Window().ShownText(), "Analyzed: 38 epochs, 40.0 s");
    Events().Undo();
}

TEST_F(LinkedViews, TellsOfTheAnalysisThatIsTheMainOneNow) {
    SpectMacroResult& open = AddStates("eyes open");
    bench->GetAnalyses().Recompute();
    Analyses().SetMain(&AddAnalysis()); // of the whole recording
    bench->GetAnalyses().Recompute();
    ASSERT_NE(bench->Window().ShownText(), "Analyzed: 29 epochs, 30.0 s");
    Analyses().SetMain(&open); // as the side bar does
    test::WaitUntilIdle();
    EXPECT_EQ(bench->Window().ShownText(), "Analyzed: 29 epochs, 30.0 s");
}

} // namespace
