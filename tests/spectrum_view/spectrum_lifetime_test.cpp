// SPDX-License-Identifier: GPL-3.0-or-later
// Views whose analyses go, views beside each other, views that end in the middle of their work.
#include "resources/dialogs/dialog_templates.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectrum_view/dialogs/band_dialog.h"
#include "spectrum_view/dialogs/measures_dialog.h"
#include "spectrum_view/dialogs/scale_dialog.h"
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/scripted_user.h"

#include <QTest>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using SPECT::Data::Mode;
using spectrum_view::Display; // hides the one of the X headers
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class RemovedAnalysis : public test::ViewFixture {
protected:
    RemovedAnalysis() {
        UseFiveBipolarChannels();
        main = Add();
    }
    void Remove() {
        manager.Remove(main);
        delete main;
    }

    test::FakeServices services;
    SpectMacroResult* main = nullptr;
};

TEST_F(RemovedAnalysis, IsNeitherListedNorCopiedNorToldOf) {
    Open(600, 300);
    Draw();
    ASSERT_EQ(view->GetTraces().size(), 16u);
    Remove();
    EXPECT_TRUE(view->GetTraces().empty());
    view->CmCopy2ClpBrd();
    EXPECT_THAT(services.clipboard.Texts(), ElementsAre(""));
    view->DrawStatusBar();
    EXPECT_THAT(window.messages, ElementsAre(""));
}

TEST_F(RemovedAnalysis, LeavesANotice) {
    Open(600, 300);
    for (const Mode mode : {Mode::CSA, Mode::TimeFrequency, Mode::Mean}) {
        view->ChangeDataMode(mode);
        Draw();
    }
    Remove();
    for (const Mode mode : {Mode::CSA, Mode::TimeFrequency, Mode::Mean}) {
        view->ChangeDataMode(mode);
        EXPECT_THAT(Draw().Texts(),
                    ElementsAre("There is no analysis yet. Choose Computation Options to make one."));
    }
}

TEST_F(RemovedAnalysis, GivesWayToTheNextOne) {
    const SpectMacroResult* next = Add();
    Open(600, 300);
    view->ChangeDataMode(Mode::CSA);
    Draw();
    Remove();
    EXPECT_EQ(Draw().Texts().back(), "memory (" + next->GetName() + ") Analyzed: 9 epochs, 5.0 s");
    EXPECT_EQ(view->GetTraces()[0].main, next->GetSpectrum(Channel(0)));
}

TEST_F(RemovedAnalysis, TakesTheComparisonWithIt) {
    SpectMacroResult* kept = Add();
    manager.SetMain(kept);
    manager.SetSecondary(main);
    Open(600, 300);
    Draw();
    ASSERT_NE(view->GetTraces()[0].secondary, nullptr);
    Remove();
    EXPECT_TRUE(view->GetTraces().empty());
    Draw();
    EXPECT_EQ(view->GetTraces()[0].main, kept->GetSpectrum(Channel(0)));
    EXPECT_EQ(view->GetTraces()[0].secondary, nullptr);
}

class TwoViews : public test::ViewFixture {
protected:
    TwoViews() {
        UseFiveBipolarChannels();
        Add();
        Open(600, 300);
        other = std::make_unique<Spectrum>(window, recording.get(), &manager, false);
        other->Create();
        other->resize(300, 200);
    }
    void DrawOther() {
        owl::TRect all = other->GetClientRect();
        other->Draw(dc, true, all);
    }

    test::FakeServices services;
    std::unique_ptr<Spectrum> other;
};

TEST_F(TwoViews, ShareTheDataModeButNotTheLayout) {
    view->ChangeDataMode(Mode::CSA);
    view->ChangeViewMode(Layout::Mode::Scalp);
    EXPECT_EQ(other->ChangeDataMode(Mode::CSA), 0); // it is already
    EXPECT_EQ(other->GetState().layout, Layout::Mode::Grid);
}

TEST_F(TwoViews, ListAnewWhatTheOtherOneComputed) {
    Draw();
    DrawOther();
    view->CmRecompute();
    EXPECT_TRUE(other->GetTraces().empty());
    other->CmCopy2ClpBrd();
    EXPECT_THAT(services.clipboard.Texts(), ElementsAre(""));
    DrawOther();
    EXPECT_EQ(other->GetTraces()[0].main, manager.GetMain()->GetSpectrum(Channel(0)));
}

TEST_F(TwoViews, DoNotNeedEachOther) {
    view->Destroy();
    view.reset();
    DrawOther();
    EXPECT_EQ(other->GetTraces().size(), 16u);
    EXPECT_EQ(other->ChangeDataMode(Mode::CSA), 1);
}

/// The user ends the program while the progress is shown.
class EndedView : public test::ViewFixture {
protected:
    EndedView() {
        UseFiveBipolarChannels();
        Add();
    }
    ~EndedView() override { window.platform.gui.OnProgress = {}; }
    void EndOnProgress() {
        window.platform.gui.OnProgress = [this] { view->Destroy(); };
    }
    /// Settings are stored exactly once.
    void ExpectEnded() {
        EXPECT_FALSE(view->IsCreated());
        EXPECT_EQ(window.platform.user.written.size(), 27u); // 7 and 5 for each of 4 entities
    }
};

TEST_F(EndedView, DrawsNothingMore) {
    Open(600, 300);
    view->ChangeViewMode(Layout::Mode::Scalp);
    UseFiveBipolarChannels(); // by another view, so that drawing has to compute
    EndOnProgress();
    EXPECT_THAT(Draw().Calls(), IsEmpty());
    ExpectEnded();
}

TEST_F(EndedView, MayEndInAnyCommandThatComputes) {
    const std::function<void()> commands[] = {
        [this] { view->CmRecompute(); },
        [this] { view->ChangeViewMode(Layout::Mode::Scalp); },
        [this] { view->SendMessage(kMontageSelector, 1); },
    };
    for (const auto& command : commands) {
        window.platform.gui.OnProgress = {};
        UseFiveBipolarChannels();
        window.platform.user.written.clear();
        Show();
        EndOnProgress();
        command();
        RunQueue();
        ExpectEnded();
    }
}

TEST_F(EndedView, MayBeDeletedInAnyCommandThatComputes) {
    test::ScriptedUser user;
    const std::pair<const char*, std::function<void()>> commands[] = {
        {"recompute", [this] { view->RunCommand(kCmRecompute); }},
        {"next selection", [this] { view->RunCommand(kCmNextSelection); }},
        {"scalp", [this] { view->RunCommand(kCmHeadView); }},
        {"montage", [this] { view->SendMessage(kMontageSelector, 1); }},
        {"options",
         [&] {
             user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) { form.accept(); });
             view->RunCommand(kCmEditOptions);
         }},
        {"bands",
         [&] {
             user.Meets<SpectrumBandDlg>([](SpectrumBandDlg& dialog) { dialog.accept(); });
             view->RunCommand(kCmSetBands);
         }},
    };
    for (const auto& [name, command] : commands) {
        window.platform.gui.OnProgress = {};
        UseFiveBipolarChannels();
        Open();
        view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::SetFocus)},
                        owl::FocusArgs{nullptr}}); // with its side bar
        window.platform.gui.OnProgress = [this] { view.reset(); };
        command();
        EXPECT_EQ(view, nullptr) << name;
        EXPECT_TRUE(manager.GetMain()->IsComputed()) << name;
    }
}

/// Counts how often it is drawn.
class CountedView final : public Spectrum {
public:
    using Spectrum::Spectrum;
    void Draw(owl::TDC& dc, bool erase, owl::TRect& rect) override {
        ++draws;
        Spectrum::Draw(dc, erase, rect);
    }
    int draws = 0;
};

class DrawnAgain : public test::ViewFixture {
protected:
    DrawnAgain() {
        UseFiveBipolarChannels();
        Add();
        auto made = std::make_unique<CountedView>(window, recording.get(), &manager, false);
        counted = made.get();
        view = std::move(made);
        ShowMade();
        RunQueue();
    }
    int DrawsAfter(const std::function<void()>& action) {
        counted->draws = 0;
        action();
        RunQueue();
        return counted->draws;
    }

    test::FakeServices services;
    CountedView* counted = nullptr;
};

TEST_F(DrawnAgain, AfterEveryCommandThatChangesWhatIsShown) {
    for (const unsigned id : {kCmCsa,
                              kCmTimeFreq,
                              kCmMean,
                              kCmHeadView,
                              kCmGridView,
                              kCmRecompute,
                              kCmSetCommon,
                              kCmSetEntity + 1,
                              kCmSetEntity + 2,
                              kCmShowPoints,
                              kCmShowLines,
                              kCmShowSd,
                              kCmShowLabels,
                              kCmShowAxesText,
                              kCmShowMeasures,
                              kCmNarrow,
                              kCmWide,
                              kCmNormalizeNone,
                              kCmNormalizeByF,
                              kCmNormalizeBySqrtF,
                              kCmNormalizeByLnF,
                              kCmNormalizeByLog10F,
                              kCmNormalizeDb,
                              kCmNextSelection}) {
        EXPECT_EQ(DrawsAfter([&] { view->RunCommand(id); }), 1) << id;
    }
    EXPECT_EQ(DrawsAfter([this] { view->SendMessage(kGridPicked, 2U << 16U | 3U); }), 1);
    EXPECT_EQ(DrawsAfter([this] { view->SendMessage(kMontageSelector, 1); }), 1);
    EXPECT_EQ(DrawsAfter([this] { view->Panes().resize(400, 300); }), 1);
}

TEST_F(DrawnAgain, ForEveryPageOfTheGrid) {
    view->SendMessage(kGridPicked, 2U << 16U | 2U);
    for (const unsigned id : {kCmNextTrace, kCmPreviousTrace}) {
        EXPECT_EQ(DrawsAfter([&] { view->RunCommand(id); }), 1) << id;
        EXPECT_EQ(DrawsAfter([&] { view->RunCommand(id); }), 0) << id; // the last, the first page
    }
}

TEST_F(DrawnAgain, NotForTheSameModeNorForMeasuresThatAreCopiedOrChosen) {
    test::ScriptedUser user;
    user.Meets<SpectMeasDlg>([](SpectMeasDlg& dialog) { dialog.accept(); });
    const std::size_t computed = window.platform.gui.Progresses().size();
    for (const unsigned id : {kCmMean, kCmGridView, kCmSetEntity + 0, kCmCopyMeasures, kCmMeasures}) {
        EXPECT_EQ(DrawsAfter([&] { view->RunCommand(id); }), 0) << id;
    }
    EXPECT_EQ(window.platform.gui.Progresses().size(), computed);
}

TEST_F(DrawnAgain, ForTheKeysThatScaleTheCurvesOnly) {
    const auto drawsAfterKey = [this](Qt::Key key) {
        return DrawsAfter([&] { QTest::keyClick(view.get(), key); });
    };
    EXPECT_EQ(drawsAfterKey(Qt::Key_Down), 1);
    EXPECT_EQ(drawsAfterKey(Qt::Key_Up), 1);
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_PageDown, Qt::Key_1}) {
        EXPECT_EQ(drawsAfterKey(key), 0) << key;
    }
    services.keys.Hold(owl::kVkControl);
    services.keys.Hold(owl::kVkShift);
    EXPECT_EQ(drawsAfterKey(Qt::Key_Down), 0);
}

TEST_F(DrawnAgain, ForAnotherFontAndOtherAxisRangesButNotWhenTheyAreCancelled) {
    resources::RegisterDialogs();
    test::ScriptedUser user;
    user.ChoosesFont(owl::TFont{"Verdana", 20, true, false});
    EXPECT_EQ(DrawsAfter([this] { view->CmSelectFont(); }), 1);
    user.ChoosesFont(std::nullopt);
    EXPECT_EQ(DrawsAfter([this] { view->CmSelectFont(); }), 0);
    user.Meets<SpectrumScaleDlg>([](SpectrumScaleDlg& dialog) { dialog.accept(); });
    EXPECT_EQ(DrawsAfter([this] { view->CmSetMaxAxis(); }), 1);
    user.Meets<SpectrumScaleDlg>([](SpectrumScaleDlg& dialog) { dialog.reject(); });
    EXPECT_EQ(DrawsAfter([this] { view->CmSetMaxAxis(); }), 0);
    resources::ForgetDialogs();
}

TEST_F(DrawnAgain, NotWhileItIsMinimized) {
    EXPECT_EQ(DrawsAfter([this] {
                  view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::Size)},
                                  owl::SizeArgs{owl::kSizeMinimized, {0, 0}}});
              }),
              0);
}

TEST_F(DrawnAgain, APickedGridGivesTheFocusBack) {
    window.activateWindow();
    window.SetFocus();
    RunQueue();
    view->SendMessage(kGridPicked, 2U << 16U | 3U);
    EXPECT_EQ(window.focusWidget(), view.get());
}

} // namespace
