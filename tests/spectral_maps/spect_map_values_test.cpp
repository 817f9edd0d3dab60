// SPDX-License-Identifier: GPL-3.0-or-later
// The numbers on the maps.
#include "tests/spectral_maps/map_fixture.h"
#include "tests/support/qt/scripted_user.h"

namespace {

using namespace orvanta;
using namespace orvanta::test;
using Measure = SPECT::Meas::Type;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// Mean over the six epochs of 2·j²·(1 + e)² for electrodes j = 1 to 4.
const std::vector<double> kAlphaAbs{30.0 + 1.0 / 3, 121.0 + 1.0 / 3, 273, 485.0 + 1.0 / 3};
const std::vector<double> kThetaAbs{32, 18, 8, 2};

/// Four maps: Alpha Abs, Theta Abs, a band that is not defined, and the mean frequency in Alpha.
class SpectMapValues : public MapFixture {
protected:
    SpectMapValues() {
        Stored(0, Choice(kAlpha));
        Stored(1, Choice(kTheta));
        Stored(2, Choice(kUndefined));
        Stored(3, Choice(kAlpha, Measure::MeanF));
    }
};

TEST_F(SpectMapValues, AreTheMeasuresOfTheElectrodesInTheirOrder) {
    Add();
    Show();
    EXPECT_THAT(Map(0).GetValues(), Near(kAlphaAbs));
    EXPECT_THAT(Map(1).GetValues(), Near(kThetaAbs));
    EXPECT_THAT(Map(3).GetValues(), Near({10, 10, 10, 10}));
}

TEST_F(SpectMapValues, AreNotKnownWhereTheyCannotBeComputed) {
    Add();
    Show();
    EXPECT_THAT(Map(2).GetValues(), Each(testing::IsNan()));
}

TEST_F(SpectMapValues, HaveTheUnitOfTheirMeasure) {
    Add();
    Show();
    EXPECT_THAT(Units(), ElementsAre("µV²", "µV²", "µV²", "Hz"));
}

TEST_F(SpectMapValues, HaveTitlesOfBandAndMeasure) {
    Add();
    Show();
    EXPECT_THAT(Titles(), ElementsAre("Band: Alpha - Measure: Abs", "Band: Theta - Measure: Abs",
                                      "Band: " + std::string(manager.GetBand(5).name) + " - Measure: Abs",
                                      "Band: Alpha - Measure: Mean F"));
}

TEST_F(SpectMapValues, HaveShortTitlesWithFiveMapsAcross) {
    Grid(1, 5);
    Add();
    Show();
    EXPECT_EQ(Titles().at(0), "Alpha - Abs");
}

TEST_F(SpectMapValues, AreZeroWithATitleOfTheirOwnBeforeAnythingIsComputed) {
    Add();
    Open();
    EXPECT_THAT(Map(0).GetValues(), Near({0, 0, 0, 0}));
    EXPECT_EQ(Map(0).GetTitle(), "Band: Alpha   Measure: Abs");
    EXPECT_EQ(Map(3).GetMeasureUnit(), "Hz");
}

TEST_F(SpectMapValues, OfAMapMadeForAComputedAnalysisAreThereAtOnce) {
    Add()->Compute(nullptr);
    Open();
    EXPECT_THAT(Map(1).GetValues(), Near(kThetaAbs));
}

TEST_F(SpectMapValues, AreZeroForASensorWithoutSpectrum) {
    Add();
    Open();
    view->UpdateMaps({}); // not computed
    view->SetSinglePalette(false);
    EXPECT_THAT(Map(0).GetValues(), Near({0, 0, 0, 0}));
}

TEST_F(SpectMapValues, StayWithoutAnAnalysisWhileTheTitlesChange) {
    Open();
    view->UpdateMaps({});
    view->SetSinglePalette(false);
    EXPECT_EQ(Map(0).GetTitle(), "Band: Alpha - Measure: Abs");
    EXPECT_THAT(Map(0).GetValues(), Near({0, 0, 0, 0}));
}

TEST_F(SpectMapValues, FollowTheEntity) {
    Add();
    SPECT::GetGlobals().SetMeasEntity(SPECT::Entity::Type::Amplitude);
    Show();
    // Of the mean amplitude spectrum: √(mean power) differs, its unit too.
    EXPECT_EQ(Map(0).GetMeasureUnit(), "µV");
}

// --- computing

TEST_F(SpectMapValues, NeverComeFromTheEmptyEventList) {
    Add();
    Open();
    const CursorLog cursor;
    XTimeList events;
    view->GetEventList(events);
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(view->ComputeAllMapsValues(), -100);
    EXPECT_FALSE(manager.GetMain()->IsComputed());
    EXPECT_THAT(cursor.Log(), IsEmpty());
}

TEST_F(SpectMapValues, LeaveAListThatIsGivenAsItIs) {
    Add();
    Open();
    XTimeList events;
    events.push_back({XTime::FromSeconds(1), XTime::FromSeconds(2)}, 7);
    view->GetEventList(events);
    EXPECT_EQ(events.size(), 1U);
}

TEST_F(SpectMapValues, AreComputedWithProgressUnderAWaitCursor) {
    Add();
    Open();
    const CursorLog cursor;

    view->SetMapValues(true);

    EXPECT_TRUE(manager.GetMain()->IsComputed());
    EXPECT_THAT(window.platform.gui.Progresses(), ElementsAre("Computing Spectra..."));
    EXPECT_EQ(window.platform.progressParent, view->GetHandle());
    EXPECT_FALSE(window.platform.gui.Positions().empty());
    EXPECT_THAT(cursor.Log(), ElementsAre(kIdcWait, 0U));
}

TEST_F(SpectMapValues, AreComputedOnce) {
    Add();
    Open();
    view->SetMapValues(true);
    const auto generation = manager.GetMain()->GetGeneration();

    view->SetMapValues(true);

    EXPECT_EQ(manager.GetMain()->GetGeneration(), generation);
    EXPECT_EQ(window.platform.gui.Progresses().size(), 1U);
}

TEST_F(SpectMapValues, AreComputedWithoutVisibleProgressWhileTheApplicationIsQuiet) {
    Add();
    Open();
    window.quiet = true;

    view->SetMapValues(true);

    EXPECT_TRUE(manager.GetMain()->IsComputed());
    EXPECT_EQ(window.platform.gui.Progresses().size(), 1U) << "made all the same";
    EXPECT_THAT(window.platform.gui.Positions(), IsEmpty());
}

TEST_F(SpectMapValues, StayWhenTheUserCancels) {
    Add();
    Show();
    manager.GetMain()->ResetData();
    window.platform.gui.Cancelled = true;

    view->SetMapValues(true);

    EXPECT_THAT(Map(0).GetValues(), Near(kAlphaAbs));
    EXPECT_FALSE(manager.GetMain()->IsComputed());
}

TEST_F(SpectMapValues, PassFailuresOnAndRestoreTheCursor) {
    Add();
    Show();
    manager.GetMain()->GetMacro().SetDSPWindowStr("No such taper");
    const CursorLog cursor;

    EXPECT_THROW(view->SetMapValues(true), std::exception);

    EXPECT_THAT(cursor.Log(), ElementsAre(kIdcWait, 0U));
    EXPECT_THAT(Map(0).GetValues(), Near(kAlphaAbs));
}

TEST_F(SpectMapValues, AreComputedAgainForOtherSettings) {
    Add();
    Show();
    manager.GetMain()->GetMacro().SetFFTSeconds(2);

    view->SetMapValues(true);

    EXPECT_EQ(manager.GetMain()->GetFFTCount(), 3U);
    EXPECT_TRUE(manager.GetMain()->IsComputed());
}

TEST_F(SpectMapValues, FollowAnotherMainAnalysisWithTheFocus) {
    Add();
    Show();
    SpectraMacro last = PlainMacro();
    last.SetEpochsSelMode(SpectraMacro::EpochsSelectionMode::FirstN);
    last.SetNumEpochsToUse(1);
    manager.SetMain(Add(last));

    view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::SetFocus)},
                    owl::FocusArgs{nullptr}});

    EXPECT_THAT(Map(0).GetValues(), Near({2, 8, 18, 32}));
}

TEST_F(SpectMapValues, AreNotAskedForAgainWithTheFocusAfterACancel) {
    Add();
    Show();
    manager.GetMain()->ResetData();
    window.platform.gui.Cancelled = true;
    const auto comes = [this] {
        view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::SetFocus)},
                        owl::FocusArgs{nullptr}});
        return window.platform.gui.Progresses().size();
    };
    const std::size_t once = comes();
    EXPECT_EQ(comes(), once);
}

// --- scales

TEST_F(SpectMapValues, ScaleAMapByItsOwnValuesWhereThatIsChosen) {
    Add();
    Show();
    EXPECT_NEAR(Map(0).GetScale().low, kAlphaAbs.front(), 1e-3);
    EXPECT_NEAR(Map(0).GetScale().high, kAlphaAbs.back(), 1e-3);
}

TEST_F(SpectMapValues, ScaleAMapFromZeroToItsMaximumWhereThatIsChosen) {
    SPECT::PlotSet zero = Choice(kTheta);
    zero.bZeroMin = true;
    Stored(1, zero);
    Add();
    Show();
    EXPECT_EQ(Map(1).GetScale().low, 0);
    EXPECT_NEAR(Map(1).GetScale().high, 32, 1e-3);
}

TEST_F(SpectMapValues, ScaleAMapAsTyped) {
    SPECT::PlotSet typed = Choice(kTheta);
    typed.bAutoScale = false;
    typed.LoScale = 5;
    typed.HiScale = 25;
    Stored(0, typed);
    typed.bZeroMin = true;
    Stored(1, typed);
    Add();
    Show();
    EXPECT_EQ(Map(0).GetScale(), (chart::ValueRange{5, 25}));
    EXPECT_EQ(Map(1).GetScale(), (chart::ValueRange{0, 25}));
}

TEST_F(SpectMapValues, AlwaysSetARange) {
    EXPECT_TRUE(Open().SetRange());
}

// --- clipboard

TEST_F(SpectMapValues, AreCopiedBelowTheNamesOfTheElectrodes) {
    Open();
    std::string row = "before";
    view->GetClipboardFirstRaw(row);
    EXPECT_EQ(row, "Item\tFp1\tCz\tO1\tO2\r\n");
}

} // namespace
