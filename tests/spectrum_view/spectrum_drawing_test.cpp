// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/spectrum_view/view_fixture.h"

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using spectrum_view::Display; // hides the one of the X headers
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class DrawingView : public test::ViewFixture {
protected:
    void UseGrid(int rows, int columns) {
        Setting("Spectrum/NumRows") = rows;
        Setting("Spectrum/NumCols") = columns;
    }
    /// Clips of the slots that were drawn, in order: a slot begins with its fill.
    std::vector<std::string> Clips() const {
        const auto& calls = dc.Calls();
        std::vector<std::string> clips;
        for (std::size_t i = 1; i < calls.size(); ++i) {
            if (calls[i].starts_with("clip") && calls[i - 1].starts_with("fill")) {
                clips.push_back(calls[i]);
            }
        }
        return clips;
    }
};

TEST_F(DrawingView, GivesTheGridItsCellsAboveAStripForTheTitle) {
    UseFiveBipolarChannels();
    Add();
    UseGrid(3, 2);
    Open(300, 200);
    Draw();
    EXPECT_THAT(TraceNames(), ElementsAre("A", "B", "C", "D", "E", "-"));
    EXPECT_THAT(Rectangles(), ElementsAre(owl::TRect{0, 0, 150, 63}, owl::TRect{150, 0, 300, 63},
                                          owl::TRect{0, 63, 150, 125}, owl::TRect{150, 63, 300, 125},
                                          owl::TRect{0, 125, 150, 188}, owl::TRect{150, 125, 300, 188}));
    EXPECT_THAT(Clips(), ElementsAre("clip 0,0,150,63", "clip 150,0,300,63", "clip 0,63,150,125",
                                     "clip 150,63,300,125", "clip 0,125,150,188", "clip 150,125,300,188"));
    EXPECT_EQ(dc.Calls().back().substr(0, 9), "text 6,18");
}

TEST_F(DrawingView, DrawsTheCurveAndThenTheTableOfASlot) {
    UseFiveBipolarChannels();
    Add();
    UseGrid(1, 1);
    Open(800, 600);
    const std::vector<std::string> calls = Draw().CallsOf({"polyline", "blend"});
    ASSERT_EQ(calls.size(), 3u); // curve, plate and outline of the table
    EXPECT_THAT(calls[0], StartsWith("polyline 80,540"));
    EXPECT_THAT(calls[1], StartsWith("blend"));
    EXPECT_THAT(dc.Texts(), testing::IsSupersetOf({"Delta", "Mean", "Peak F"}));
    view->CmShowMeasures();
    EXPECT_THAT(Draw().CallsOf("blend"), IsEmpty());
}

TEST_F(DrawingView, DrawsOnlyWhatMeetsTheDamage) {
    UseFiveBipolarChannels();
    Add();
    UseGrid(2, 2);
    Open(300, 200);
    Draw({10, 10, 20, 20});
    EXPECT_THAT(Clips(), ElementsAre("clip 0,0,150,94"));
    Draw({140, 90, 151, 95});
    EXPECT_EQ(Clips().size(), 4u);
}

TEST_F(DrawingView, ListsTheTracesOfTheMontageInUse) {
    UseFiveBipolarChannels();
    Add();
    UseGrid(1, 2);
    Open();
    Draw();
    EXPECT_THAT(TraceNames(), ElementsAre("A", "B"));
    Use("X = +Cz -Fp1\nY = +Fp1 -F3\nZ = +F3 -Cz");
    view->CmRecompute();
    Draw();
    EXPECT_THAT(TraceNames(), ElementsAre("X", "Y"));
}

TEST_F(DrawingView, AdjustsTheMontageBeforeItListsTheTraces) {
    Add();
    Open();
    view->ChangeViewMode(Layout::Mode::Scalp);
    UseFiveBipolarChannels(); // by another view
    Draw();
    EXPECT_EQ(recording->GetTraceInfo()->GetMtg(), *recording->GetMontageList()->GetUniMtg());
    EXPECT_THAT(TraceNames(), ElementsAre("Fp1", "F3", "Cz"));
    EXPECT_EQ(window.platform.gui.Progresses().size(), 1u);
    Draw(); // comes to rest
    EXPECT_EQ(window.platform.gui.Progresses().size(), 1u);
}

TEST_F(DrawingView, DrawsTheHeadBehindTheScalpOnly) {
    Add();
    Open(400, 400);
    view->ChangeViewMode(Layout::Mode::Scalp);
    const std::vector<std::string> calls = Draw().Calls();
    EXPECT_THAT(calls[0], StartsWith("pen"));
    for (const std::size_t line : {1u, 2u, 3u, 4u}) {
        EXPECT_THAT(calls[line], StartsWith("polyline"));
    }
    EXPECT_EQ(Clips().size(), 3u);
}

TEST_F(DrawingView, ShowsATraceWithoutAPlaceNowhere) {
    const auto other = signal::MakeRecording(
        test::MakeData({{"Fp1", 8, test::Fp1Values(40), "uV"}, {"EEG 7", 8, test::CzValues(40), "uV"}}));
    SpectraMgr ofOther(other.get(), nullptr);
    auto* analysis = new SpectMacroResult(test::SmallMacro(), other.get(), nullptr);
    analysis->Compute(nullptr);
    ofOther.push_back(analysis);
    view = std::make_unique<Spectrum>(window, other.get(), &ofOther, false);
    view->Create();
    view->resize(300, 200);
    view->ChangeViewMode(Layout::Mode::Scalp);
    Draw();
    ASSERT_EQ(Rectangles().size(), 2u);
    EXPECT_FALSE(Rectangles()[0].IsEmpty());
    EXPECT_TRUE(Rectangles()[1].IsEmpty());
    EXPECT_EQ(Clips().size(), 1u);
    view.reset();
}

TEST_F(DrawingView, HasATitle) {
    UseFiveBipolarChannels();
    const std::string name = Add()->GetName();
    Open(600, 300);
    Draw();
    EXPECT_EQ(dc.Texts().back(), "memory (" + name + ") Analyzed: 9 epochs, 5.0 s");
    manager.SetSecondary(Add());
    manager.SetShowTTest(true);
    Draw();
    EXPECT_EQ(dc.Texts().back(), "memory (" + name + ") Analyzed: 9 epochs, 5.0 s p-scale: 0.05");
    manager.SetShowTTest(false);
    Draw();
    EXPECT_EQ(dc.Texts().back(), "memory (" + name + ") Analyzed: 9 epochs, 5.0 s");
}

TEST_F(DrawingView, LeavesATitleOutThatDoesNotFit) {
    UseFiveBipolarChannels();
    Add();
    Open(200, 150);
    Draw();
    EXPECT_THAT(dc.Texts(), Each(Not(StartsWith("memory"))));
}

TEST_F(DrawingView, IsLaidOutAnewWhenItsSizeChanges) {
    UseFiveBipolarChannels();
    Add();
    UseGrid(1, 2);
    Show(320, 240);
    ASSERT_EQ(view->GetClientRect(), (owl::TRect{0, 0, 320, 240}));
    EXPECT_EQ(Rectangles()[0], (owl::TRect{0, 0, 160, 228}));
    view->Panes().resize(400, 112);
    RunQueue();
    EXPECT_EQ(Rectangles()[0], (owl::TRect{0, 0, 200, 100}));
    EXPECT_THAT(window.platform.gui.Progresses(), IsEmpty());
}

TEST_F(DrawingView, KeepsItsLayoutWhenItIsMinimized) {
    UseFiveBipolarChannels();
    Add();
    UseGrid(1, 2);
    Show(320, 240);
    view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::Size)},
                    owl::SizeArgs{owl::kSizeMinimized, {0, 0}}});
    EXPECT_EQ(Rectangles()[0], (owl::TRect{0, 0, 160, 228}));
}

using EmptyView = DrawingView;

TEST_F(EmptyView, SaysThatThereIsNoAnalysis) {
    Open(600, 300);
    Draw();
    EXPECT_THAT(dc.Texts(), ElementsAre("There is no analysis yet. Choose Computation Options to make one."));
    EXPECT_THAT(Clips(), IsEmpty());
}

TEST_F(EmptyView, SaysThatTheSpectraAreNotComputed) {
    Add(false);
    Open(600, 300);
    Draw();
    EXPECT_THAT(dc.Texts(), ElementsAre("The spectra are not computed. Choose Recompute."));
}

TEST_F(EmptyView, SaysThatTheMontageHasNoBipolarChannels) {
    Add();
    Open(600, 300);
    Draw();
    EXPECT_EQ(dc.Texts().back(),
              "The grid shows bipolar channels, and this montage has none. Choose Scalp View.");
    EXPECT_EQ(Clips().size(), 16u); // frames only
}

TEST_F(EmptyView, SaysThatTheGridHasNoCells) {
    UseFiveBipolarChannels();
    Add();
    UseGrid(0, 4);
    Open(600, 300);
    Draw();
    EXPECT_EQ(dc.Texts().back(), "The grid has no cells. Choose its rows and columns.");
    EXPECT_THAT(Clips(), IsEmpty());
}

TEST_F(EmptyView, SaysThatTheRangeOfFrequenciesIsEmpty) {
    UseFiveBipolarChannels();
    Add();
    Open(600, 300);
    Display().range = {4, 4};
    Draw();
    EXPECT_EQ(dc.Texts().back(), "The range of frequencies is empty. Choose Set Scale Axis Range.");
    EXPECT_EQ(Clips().size(), 16u);
}

TEST_F(EmptyView, SaysThatASingleEpochHasNoCoherenceAndNoPhase) {
    UseFiveBipolarChannels();
    Add();
    Open(600, 300);
    for (const unsigned entity : {2U, 3U}) {
        view->CmSetEntity(kCmSetEntity + entity);
        EXPECT_THAT(Draw().Texts().back(), StartsWith("memory")) << entity; // all is there
        view->ChangeDataMode(entity == 2 ? SPECT::Data::Mode::CSA : SPECT::Data::Mode::TimeFrequency);
        EXPECT_EQ(Draw().Texts().back(), "A single epoch has no coherence and no phase. Choose Mean.");
    }
    view->CmSetEntity(kCmSetEntity + 1);
    view->ChangeDataMode(SPECT::Data::Mode::CSA);
    EXPECT_THAT(Draw().Texts().back(), StartsWith("memory"));
}

TEST_F(EmptyView, SaysThatCoherenceNeedsMoreThanOneEpoch) {
    UseFiveBipolarChannels();
    Add()->GetMacro().SetFFTSeconds(5); // all of the recording
    Open(600, 300);
    view->CmSetEntity(kCmSetEntity + 2);
    view->CmRecompute();
    EXPECT_EQ(Draw().Texts().back(), "Coherence and phase need two electrodes and more than one epoch.");
    view->CmSetEntity(kCmSetEntity + 1);
    EXPECT_THAT(Draw().Texts().back(), StartsWith("memory"));
}

TEST_F(EmptyView, BreaksTheNoticeWhereItIsNarrowAndLeavesItOutWhereItIsTiny) {
    Open(300, 200);
    Draw();
    EXPECT_EQ(dc.Texts().size(), 2u);
    view->resize(60, 40);
    Draw();
    EXPECT_THAT(dc.Texts(), IsEmpty());
}

} // namespace
