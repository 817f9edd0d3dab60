// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/failing_source.h"

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using SPECT::Data::Mode;
using SPECT::Entity::Type;
using spectrum_view::Display; // hides the one of the X headers
using testing::ElementsAre;
using testing::IsEmpty;

class Modes : public test::ViewFixture {
protected:
    const MontageType& Montage() const { return recording->GetTraceInfo()->GetMtg(); }
    const MontageType& AsRecorded() const { return *recording->GetMontageList()->GetUniMtg(); }
    const MontageType& Reference() const { return *recording->GetMontageList()->GetRefMtg(); }
    std::size_t Computations() const { return window.platform.gui.Progresses().size(); }
};

TEST_F(Modes, ChangingTheDataModeAnswersTheEarlierOne) {
    Open();
    EXPECT_EQ(view->ChangeDataMode(Mode::CSA), 1);
    EXPECT_EQ(Display().mode, Mode::CSA);
    EXPECT_EQ(view->ChangeDataMode(Mode::TimeFrequency), 3);
    EXPECT_EQ(view->ChangeDataMode(Mode::Mean), 2);
}

TEST_F(Modes, TheSameModeIsNoChange) {
    Open();
    EXPECT_EQ(view->ChangeDataMode(Mode::Mean), 0);
    EXPECT_EQ(view->ChangeViewMode(Layout::Mode::Grid), 0);
}

TEST_F(Modes, ChangingTheLayoutAnswersTheEarlierOneAndLaysOut) {
    Add();
    Open();
    EXPECT_EQ(view->ChangeViewMode(Layout::Mode::Scalp), 2);
    ASSERT_EQ(Rectangles().size(), 3u);
    for (const owl::TRect& place : Rectangles()) {
        EXPECT_FALSE(place.IsEmpty());
    }
    EXPECT_EQ(view->ChangeViewMode(Layout::Mode::Grid), 1);
    EXPECT_EQ(Rectangles()[1], (owl::TRect{80, 0, 160, 57})); // 4 × 4 of 320 × (240 − 12)
}

TEST_F(Modes, ChangingThemComputesNothing) {
    Add();
    Open();
    view->ChangeDataMode(Mode::CSA);
    view->ChangeViewMode(Layout::Mode::Scalp);
    view->ChangeViewMode(Layout::Mode::Grid);
    EXPECT_EQ(Computations(), 0u);
}

TEST_F(Modes, TheScalpTakesTheRecordedMontageForABipolarOne) {
    UseFiveBipolarChannels();
    Add();
    Open();
    view->ChangeViewMode(Layout::Mode::Scalp);
    EXPECT_EQ(Montage(), AsRecorded());
    EXPECT_EQ(Computations(), 1u);
    EXPECT_THAT(TraceNames(), ElementsAre("Fp1", "F3", "Cz"));
}

TEST_F(Modes, CoherenceAndPhaseOnTheScalpTakeTheReferenceMontageAndTheMean) {
    Add();
    Open();
    view->ChangeViewMode(Layout::Mode::Scalp);
    for (const unsigned entity : {2U, 3U}) {
        view->CmSetEntity(kCmSetEntity);
        recording->GetTraceInfo()->SetMtg(AsRecorded());
        view->ChangeDataMode(Mode::CSA);
        const std::size_t before = Computations();
        view->CmSetEntity(kCmSetEntity + entity);
        EXPECT_EQ(Montage(), Reference()) << entity;
        EXPECT_EQ(Display().mode, Mode::Mean) << entity;
        EXPECT_EQ(Computations(), before + 1) << entity;
    }
}

TEST_F(Modes, TheGridKeepsTheMontageForEveryEntity) {
    UseFiveBipolarChannels();
    Add();
    const MontageType before = Montage();
    Open();
    view->CmSetEntity(kCmSetEntity + 3);
    EXPECT_EQ(Montage(), before);
    EXPECT_EQ(Computations(), 0u);
}

TEST_F(Modes, CoherenceAndPhaseShowTheMeanAndFlipTheCommonScale) {
    Add();
    Open();
    view->ChangeDataMode(Mode::CSA);
    view->CmSetEntity(kCmSetEntity + 2);
    EXPECT_EQ(Display().mode, Mode::Mean);
    EXPECT_TRUE(view->GetState().commonScale);
    EXPECT_TRUE(Item(kCmSetCommon).isChecked());
    view->CmSetEntity(kCmSetEntity + 1); // leaving keeps it
    EXPECT_TRUE(view->GetState().commonScale);
    view->CmSetEntity(kCmSetEntity + 3);
    EXPECT_FALSE(view->GetState().commonScale);
    EXPECT_FALSE(Item(kCmSetCommon).isChecked());
}

TEST_F(Modes, AnEntityIsCheckedOnceItIsChosen) {
    Open();
    view->CmSetEntity(kCmSetEntity + 1);
    EXPECT_EQ(manager.GetMeasEntity(), Type::Power);
    EXPECT_FALSE(Item(kCmSetEntity).isChecked());
    EXPECT_TRUE(Item(kCmSetEntity + 1).isChecked());
}

TEST_F(Modes, AnEntityThatThereIsNotChangesNothing) {
    Open();
    for (unsigned id = kCmSetEntity + 4; id <= kCmLastEntity; ++id) {
        EXPECT_TRUE(view->RunCommand(id));
        EXPECT_EQ(manager.GetMeasEntity(), Type::Amplitude);
    }
}

TEST_F(Modes, ChoosingAnEntityKeepsTheShownFrequencies) {
    Setting("EntityString_1/MinX") = 1;
    Setting("EntityString_1/MaxX") = 2;
    Open();
    view->CmSetEntity(kCmSetEntity + 1);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 4}));
}

TEST_F(Modes, CommandsReachThemThroughTheMenu) {
    Add();
    Open();
    Item(kCmCsa).trigger();
    EXPECT_EQ(Display().mode, Mode::CSA);
    Item(kCmMean).trigger();
    EXPECT_EQ(Display().mode, Mode::Mean);
    Item(kCmHeadView).trigger();
    EXPECT_EQ(view->GetState().layout, Layout::Mode::Scalp);
    Item(kCmGridView).trigger();
    EXPECT_EQ(view->GetState().layout, Layout::Mode::Grid);
    Item(kCmSetCommon).trigger();
    EXPECT_TRUE(view->GetState().commonScale);
    Item(kCmShowPoints).trigger();
    Item(kCmShowLines).trigger();
    Item(kCmShowSd).trigger();
    Item(kCmShowLabels).trigger();
    Item(kCmShowAxesText).trigger();
    Item(kCmShowMeasures).trigger();
    const DisplaySettings& shown = Display();
    EXPECT_TRUE(shown.showSd);
    EXPECT_FALSE(shown.showPoints || shown.showLines || shown.showLabels || shown.showAxesText ||
                 shown.showMeasuresBox);
    EXPECT_TRUE(view->RunCommand(kCmTimeFreq));
    EXPECT_EQ(Display().mode, Mode::TimeFrequency);
}

using Recomputing = Modes;

TEST_F(Recomputing, ShowsItsProgressOverTheView) {
    SpectMacroResult* main = Add(false);
    Open().CheckAndRecompute(false);
    EXPECT_TRUE(main->IsComputed());
    EXPECT_THAT(window.platform.gui.Progresses(), ElementsAre("Computing Spectra..."));
    EXPECT_EQ(window.platform.progressParent, view->GetHandle());
}

TEST_F(Recomputing, IsWithoutProgressWhenQuiet) {
    SpectMacroResult* main = Add(false);
    Open().CheckAndRecompute(true);
    EXPECT_TRUE(main->IsComputed());
    EXPECT_EQ(Computations(), 0u);
}

TEST_F(Recomputing, DoesNothingWhenAllIsUpToDate) {
    const SpectMacroResult* main = Add();
    const std::uint64_t before = main->GetGeneration();
    Open().CheckAndRecompute(false);
    EXPECT_EQ(main->GetGeneration(), before);
    EXPECT_EQ(Computations(), 0u);
}

TEST_F(Recomputing, AsksTheMainAnalysisOnlyAndThenComputesAll) {
    Add();
    SpectMacroResult* secondary = Add(false);
    manager.SetSecondary(secondary);
    Open().CheckAndRecompute(false);
    EXPECT_FALSE(secondary->IsComputed());
    EXPECT_EQ(Computations(), 0u);
    view->CmRecompute();
    EXPECT_TRUE(secondary->IsComputed());
    EXPECT_EQ(Computations(), 1u);
}

TEST_F(Recomputing, DoesNothingWithoutAnAnalysis) {
    Open();
    Display().range = {-1, 100};
    view->CheckAndRecompute(false);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{-1, 100}));
    EXPECT_EQ(Computations(), 0u);
}

TEST_F(Recomputing, KeepsTheFrequenciesWithinHalfTheRate) {
    Add();
    Open();
    Display().range = {-3, 100};
    view->CheckAndRecompute(false);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 4}));
    Display().range = {9, 100};
    view->CheckAndRecompute(false);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{4, 4}));
}

TEST_F(Recomputing, DropsTheDataFirstWhenAskedFor) {
    SpectMacroResult* main = Add();
    const std::uint64_t before = main->GetGeneration();
    Open().CmRecompute();
    EXPECT_NE(main->GetGeneration(), before);
    EXPECT_TRUE(main->IsComputed());
    EXPECT_EQ(Computations(), 1u);
    window.quiet = true;
    view->CmRecompute();
    EXPECT_EQ(Computations(), 1u);
}

TEST_F(Recomputing, GivesTheFocusBack) {
    Add();
    Show();
    window.activateWindow();
    window.SetFocus();
    RunQueue();
    view->CheckAndRecompute(false);
    RunQueue();
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(Recomputing, ListsTheEpochsOfTheMainAnalysis) {
    Open();
    XTimeList list;
    list.push_back(XTimeInterval());
    view->GetEventList(list);
    EXPECT_TRUE(list.empty());
    Add();
    view->GetEventList(list);
    EXPECT_EQ(list.size(), 9u); // of 1 s every half second of 5 s
}

/// A recording that counts how often it is read.
class ReadingRecording : public test::ViewFixture {
protected:
    ReadingRecording() {
        signal::RecordingData data = test::SmallData();
        source = std::make_shared<test::FailingSource>(data.source);
        source->BeforeRead = [this] { ++reads; };
        data.source = source;
        counted = signal::MakeRecording(std::move(data));
        ofCounted = std::make_unique<SpectraMgr>(counted.get(), nullptr);
        ofCounted->push_back(new SpectMacroResult(test::SmallMacro(), counted.get(), nullptr));
    }
    ~ReadingRecording() override { view.reset(); }

    std::shared_ptr<test::FailingSource> source;
    int reads = 0;
    std::unique_ptr<EEGFileInfoType> counted;
    std::unique_ptr<SpectraMgr> ofCounted;
};

TEST_F(ReadingRecording, IsNotReadAgainByModesTogglesSizesAndEntities) {
    view = std::make_unique<Spectrum>(window, counted.get(), ofCounted.get(), false);
    view->Create();
    view->CheckAndRecompute(false);
    ASSERT_GT(reads, 0);
    reads = 0;
    view->resize(300, 200);
    Draw();
    for (const unsigned id : {kCmHeadView, kCmCsa, kCmTimeFreq, kCmMean, kCmShowPoints, kCmShowSd,
                              kCmSetCommon, kCmSetEntity + 1, kCmGridView, kCmSetEntity + 2}) {
        view->RunCommand(id);
        Draw();
    }
    view->resize(500, 400);
    Draw();
    EXPECT_EQ(reads, 0);
}

TEST_F(ReadingRecording, ThatCannotBeReadLeavesTheViewAsItIs) {
    view = std::make_unique<Spectrum>(window, counted.get(), ofCounted.get(), false);
    view->Create();
    view->CheckAndRecompute(false);
    source->BeforeRead = [] { throw std::runtime_error("gone"); };
    EXPECT_NO_THROW(view->CmRecompute());
    EXPECT_FALSE(ofCounted->GetMain()->IsComputed());
    view->resize(600, 300);
    Draw();
    EXPECT_THAT(dc.Texts(), testing::Contains("The spectra are not computed. Choose Recompute."));
}

} // namespace
