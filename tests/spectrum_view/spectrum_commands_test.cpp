// SPDX-License-Identifier: GPL-3.0-or-later
// Paging, zoom and weighting, the next selection, fonts and settings.
#include "side_bar/macro_selection_form.h"
#include "side_bar/spectrum_macro_form.h"
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using SPECT::Normalisation;
using SPECT::Entity::Type;
using spectrum_view::Display; // hides the one of the X headers
using test::FormUser;
using testing::ElementsAre;
using testing::IsEmpty;

/// Channels A to E in a grid of two rows and two columns.
class PagedView : public test::ViewFixture {
protected:
    PagedView() {
        UseFiveBipolarChannels();
        Add();
        Open();
        Pick(2, 2);
    }
    void Pick(unsigned rows, unsigned columns) { view->SendMessage(kGridPicked, rows << 16U | columns); }
    std::uint64_t First() const { return view->GetState().firstTrace; }
};

TEST_F(PagedView, GoesOnByAllCellsAsLongAsThereAreTraces) {
    view->CmNextTrace();
    EXPECT_EQ(First(), 4u);
    Draw();
    EXPECT_THAT(TraceNames(), ElementsAre("E", "-", "-", "-"));
    view->CmNextTrace();
    EXPECT_EQ(First(), 4u);
}

TEST_F(PagedView, StopsAtAFullLastPage) {
    Pick(1, 5);
    view->CmNextTrace();
    EXPECT_EQ(First(), 0u);
}

TEST_F(PagedView, GoesBackByAllCells) {
    Pick(1, 1);
    view->CmNextTrace();
    view->CmNextTrace();
    view->CmPreviousTrace();
    EXPECT_EQ(First(), 1u);
    view->CmPreviousTrace();
    view->CmPreviousTrace();
    EXPECT_EQ(First(), 0u);
}

TEST_F(PagedView, GoesBackFromTrace3By4CellsToTheFirst) {
    Pick(1, 3);
    view->CmNextTrace();
    Pick(2, 2);
    ASSERT_EQ(First(), 3u);
    view->CmPreviousTrace();
    EXPECT_EQ(First(), 0u);
}

TEST_F(PagedView, AsksNotForTheLayout) {
    view->ChangeViewMode(Layout::Mode::Scalp);
    UseFiveBipolarChannels();
    manager.GetMain()->Compute(nullptr);
    view->CmNextTrace();
    EXPECT_EQ(First(), 4u);
}

TEST_F(PagedView, DoesNothingWithoutAnAnalysis) {
    const std::unique_ptr<SpectMacroResult> gone(manager.GetMain());
    manager.Remove(gone.get());
    view->CmNextTrace();
    EXPECT_EQ(First(), 0u);
}

TEST_F(PagedView, StartsAnewInAnotherModeLayoutOrMontage) {
    const std::function<void()> changes[] = {
        [this] { view->CmCSA(); },
        [this] { view->CmHeadView(); },
        [this] { view->SendMessage(kMontageSelector, 1); },
    };
    for (const auto& change : changes) {
        UseFiveBipolarChannels();
        view->CmGridView();
        view->CmRecompute();
        view->CmNextTrace();
        ASSERT_EQ(First(), 4u);
        change();
        EXPECT_EQ(First(), 0u);
    }
}

/// Sampled at so many Hz; the stored frequency range of the amplitude is that of the test.
class ZoomedView : public test::ViewFixture {
protected:
    ~ZoomedView() override { view.reset(); }

    void OpenAt(double rate, double minimum, double maximum, bool withAnalysis = true) {
        view.reset();
        sampled = signal::MakeRecording(test::MakeData(
            {{"Fp1", rate, std::vector<double>(2 * static_cast<std::size_t>(rate), 1), "uV"}}));
        ofSampled = std::make_unique<SpectraMgr>(sampled.get(), nullptr);
        if (withAnalysis) {
            ofSampled->push_back(new SpectMacroResult(test::SmallMacro(), sampled.get(), nullptr));
        }
        Setting("EntityString_0/MinX") = minimum;
        Setting("EntityString_0/MaxX") = maximum;
        view = std::make_unique<Spectrum>(window, sampled.get(), ofSampled.get(), false);
        view->Create();
    }
    double MaxX(const char* entity = "Amplitude") const { return view->GetState().scales.at(entity).MaxX; }

    std::unique_ptr<EEGFileInfoType> sampled;
    std::unique_ptr<SpectraMgr> ofSampled;
};

TEST_F(ZoomedView, NarrowsByHalfAndTo4HzFromBelow8) {
    constexpr struct {
        double before, after;
    } kCases[] = {{10, 5}, {16, 8}, {8, 4}, {7.9, 4}, {4, 4}, {1, 4}};
    for (const auto& [before, after] : kCases) {
        OpenAt(256, 0, before);
        view->CmNarrow();
        EXPECT_DOUBLE_EQ(MaxX(), after) << before;
        EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, after})) << before;
    }
}

TEST_F(ZoomedView, WidensOnceBeyondHalfTheRateAndThenToHalfTheRate) {
    OpenAt(256, 0, 100);
    view->CmWide();
    EXPECT_DOUBLE_EQ(MaxX(), 200);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 128})); // nothing lies above
    view->CmWide();
    EXPECT_DOUBLE_EQ(MaxX(), 128);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 128}));
    view->CmWide();
    EXPECT_DOUBLE_EQ(MaxX(), 128);
}

TEST_F(ZoomedView, WidensToWholeHertzOfAnOddRate) {
    OpenAt(125, 0, 70);
    view->CmWide();
    EXPECT_DOUBLE_EQ(MaxX(), 62);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 62}));
}

TEST_F(ZoomedView, KeepsTheBottomWhereItLiesBelowTheTop) {
    OpenAt(256, 3, 20);
    view->CmNarrow();
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{3, 10}));
    OpenAt(256, 8, 10);
    view->CmNarrow();
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{5, 5}));
}

TEST_F(ZoomedView, WidensOnlyWithAnAnalysisButNarrowsWithoutOne) {
    OpenAt(256, 0, 20, false);
    view->CmWide();
    EXPECT_DOUBLE_EQ(MaxX(), 20);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 20}));
    view->CmNarrow();
    EXPECT_DOUBLE_EQ(MaxX(), 10);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 10}));
}

TEST_F(ZoomedView, WorksOnTheEntityWhoseRangeIsTakenOverByZoomingOnly) {
    Setting("EntityString_1/MaxX") = 60;
    OpenAt(256, 0, 20);
    view->CmSetEntity(kCmSetEntity + 1);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 20}));
    view->CmNarrow();
    EXPECT_DOUBLE_EQ(MaxX("Power"), 30);
    EXPECT_DOUBLE_EQ(MaxX("Amplitude"), 20);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 30}));
}

using Weighting = test::ViewFixture;

TEST_F(Weighting, FollowsItsCommand) {
    Open();
    constexpr std::pair<unsigned, int> kModes[] = {{14508, 1}, {14509, 2}, {14511, 3},
                                                   {14510, 4}, {14507, 5}, {14506, 0}};
    for (const auto& [id, mode] : kModes) {
        EXPECT_TRUE(view->RunCommand(id)) << id;
        EXPECT_EQ(static_cast<int>(Display().normalisation), mode) << id;
    }
}

TEST_F(Weighting, AnEntityBeyondTheLastOneIsNotTaken) {
    Open();
    for (const unsigned id : {14460U, 14461U, 14462U}) {
        EXPECT_TRUE(view->RunCommand(id));
        EXPECT_EQ(manager.GetMeasEntity(), Type::Amplitude) << id;
        EXPECT_THAT(window.platform.gui.Progresses(), IsEmpty());
    }
}

/// Eyes are closed from 1 to 2.5 s and from 5 to 7 s of 10 s at 8 Hz.
class Selections : public test::ViewFixture {
protected:
    Selections() {
        const std::vector<signal::Annotation> states = {{1, 1.5, "closed"}, {5, 2, "closed"}};
        recorded = test::SmallRecording(10, states);
        ofRecorded = std::make_unique<SpectraMgr>(recorded.get(), nullptr);
    }
    ~Selections() override { view.reset(); }

    void OpenWith(SpectraMacro::TimeIntervalSelectMode mode) {
        SpectraMacro macro = test::SmallMacro();
        macro.SetTimeIntervalSelectMode(mode);
        macro.SetAcceptStateList({"closed"});
        macro.SetFixedDurationSec(4);
        ofRecorded->push_back(new SpectMacroResult(macro, recorded.get(), nullptr));
        OpenView();
    }
    void OpenView() {
        view = std::make_unique<Spectrum>(window, recorded.get(), ofRecorded.get(), false);
        view->Create();
    }
    /// Where the traces begin then, seconds.
    double Next() {
        view->CmNextSelection();
        return recorded->GetTraceCursor()->GetStartRecTime()->Seconds();
    }
    std::size_t Computations() const { return window.platform.gui.Progresses().size(); }

    std::unique_ptr<EEGFileInfoType> recorded;
    std::unique_ptr<SpectraMgr> ofRecorded;
};

TEST_F(Selections, AreGoneToOneAfterTheOtherAndComputed) {
    OpenWith(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
    EXPECT_DOUBLE_EQ(Next(), 1);
    EXPECT_TRUE(ofRecorded->GetMain()->IsComputed());
    EXPECT_EQ(Computations(), 1u);
    EXPECT_DOUBLE_EQ(Next(), 5);
    EXPECT_EQ(Computations(), 2u);
}

TEST_F(Selections, LeaveTheCursorBehindTheLastOneAndAreComputedAllTheSame) {
    OpenWith(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
    recorded->GetTraceCursor()->SetPosition(64);
    EXPECT_DOUBLE_EQ(Next(), 8);
    EXPECT_EQ(Computations(), 1u);
}

TEST_F(Selections, OfADurationFollowTheCursor) {
    OpenWith(SpectraMacro::TimeIntervalSelectMode::ByDuration);
    EXPECT_DOUBLE_EQ(Next(), 4);
    EXPECT_DOUBLE_EQ(Next(), 8);
    EXPECT_DOUBLE_EQ(Next(), 8);
}

TEST_F(Selections, AreNoneWithoutAnAnalysis) {
    OpenView();
    EXPECT_DOUBLE_EQ(Next(), 0);
    EXPECT_EQ(Computations(), 0u);
}

/// The view is on the screen beside a window that has the focus.
class AskingView : public test::ViewFixture {
protected:
    void ShowWithFocusElsewhere() {
        Show(320, 240);
        window.activateWindow();
        window.SetFocus();
        RunQueue();
        ASSERT_EQ(window.focusWidget(), &window);
    }
    void ExpectFocus() {
        RunQueue();
        EXPECT_EQ(window.focusWidget(), view.get());
        EXPECT_TRUE(view->isEnabled());
    }

    test::ScriptedUser user;
};

TEST_F(AskingView, LaysOutForTheChosenFont) {
    Add();
    UseFiveBipolarChannels();
    ShowWithFocusElsewhere();
    view->CmRecompute();
    RunQueue();
    window.SetFocus();
    const owl::TFont before = view->GetViewFont();
    user.ChoosesFont(owl::TFont{"Verdana", 40, true, false});
    view->CmSelectFont();
    EXPECT_EQ(view->GetViewFont(), (owl::TFont{"Verdana", 40, true, false}));
    EXPECT_EQ(Rectangles()[0], (owl::TRect{0, 0, 80, 50})); // a quarter of 320 × (240 − 40)
    EXPECT_THAT(user.FontsOffered(), ElementsAre(before));
    ExpectFocus();
}

TEST_F(AskingView, KeepsItsFontWhenNoneIsChosen) {
    Add();
    ShowWithFocusElsewhere();
    const owl::TFont before = view->GetViewFont();
    user.ChoosesFont(std::nullopt);
    view->CmSelectFont();
    EXPECT_EQ(view->GetViewFont(), before);
    ExpectFocus();
}

TEST_F(AskingView, ComputesWithEditedOptions) {
    const SpectMacroResult* main = Add();
    ShowWithFocusElsewhere();
    user.Meets<TFormSpectrumMacro>([&](TFormSpectrumMacro& form) {
        EXPECT_EQ(form.parentWidget(), view.get());
        EXPECT_TRUE(form.IsEditable());
        EXPECT_FALSE(form.IsOpenedFromLibrary());
        EXPECT_STREQ(form.GetMacroFolder(), "");
        EXPECT_EQ(form.GetSamplingRate(), 8u);
        FormUser(form).Clicks("rbByDuration");
        FormUser(form).Clicks("BitBtnCompute");
    });
    view->CmEditOptions();
    EXPECT_EQ(manager.Size(), 1u);
    EXPECT_EQ(main->GetMacro().GetTimeIntervalSelectMode(), SpectraMacro::TimeIntervalSelectMode::ByDuration);
    EXPECT_TRUE(main->IsComputed());
    EXPECT_THAT(window.platform.gui.Progresses(), ElementsAre("Computing Spectra..."));
    ExpectFocus();
}

TEST_F(AskingView, KeepsOptionsThatAreNotAccepted) {
    const SpectMacroResult* main = Add();
    const std::uint64_t before = main->GetGeneration();
    ShowWithFocusElsewhere();
    user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) {
        FormUser(form).Clicks("rbByDuration");
        form.reject();
    });
    view->CmEditOptions();
    EXPECT_EQ(main->GetMacro().GetTimeIntervalSelectMode(),
              SpectraMacro::TimeIntervalSelectMode::AllRecording);
    EXPECT_EQ(main->GetGeneration(), before);
    ExpectFocus();
}

TEST_F(AskingView, OptionsWithoutAnAnalysisMakeOne) {
    Open();
    user.Meets<TFormMacroSpectra>([&](TFormMacroSpectra& form) {
        EXPECT_EQ(form.parentWidget(), view.get());
        EXPECT_FALSE(view->isEnabled());
        FormUser(form).Clicks("BtnAutoAverage");
    });
    view->CmEditOptions();
    EXPECT_EQ(manager.Size(), 1u);
    EXPECT_NE(manager.GetMain(), nullptr);
    EXPECT_TRUE(view->isEnabled());
    EXPECT_THAT(window.platform.gui.Progresses(), IsEmpty());
}

TEST_F(AskingView, ANewSpectrumIsAddedBehindTheOthers) {
    const SpectMacroResult* main = Add();
    ShowWithFocusElsewhere();
    user.Meets<TFormMacroSpectra>([](TFormMacroSpectra& form) { FormUser(form).Clicks("BtnAutoAverage"); });
    view->CmNewSpectrum();
    EXPECT_EQ(manager.Size(), 2u);
    EXPECT_EQ(manager.GetMain(), main);
    ExpectFocus();
}

TEST_F(AskingView, AsksForOneNewSpectrumAtATime) {
    Open();
    user.Meets<TFormMacroSpectra>([&](TFormMacroSpectra& form) {
        view->CmNewSpectrum();
        view->CmEditOptions();
        FormUser(form).Clicks("BtnCancel");
    });
    view->CmNewSpectrum();
    EXPECT_EQ(user.DialogsShown(), 1);
    EXPECT_EQ(manager.Size(), 0u);
}

TEST_F(AskingView, AsksAgainAfterARequestThatFailed) {
    Open();
    user.Meets<TFormMacroSpectra>([](TFormMacroSpectra&) { throw std::runtime_error("no form"); });
    EXPECT_THROW(view->CmNewSpectrum(), std::runtime_error);
    EXPECT_TRUE(view->isEnabled());
    user.Meets<TFormMacroSpectra>([](TFormMacroSpectra& form) { FormUser(form).Clicks("BtnCancel"); });
    view->CmNewSpectrum();
    EXPECT_EQ(user.DialogsShown(), 2);
}

} // namespace
