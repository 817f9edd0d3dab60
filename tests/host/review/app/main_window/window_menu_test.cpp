// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/the_child.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QTest>

namespace {

using namespace orvanta;
using review::ViewKind;
using testing::ElementsAre;

class WindowMenu : public test::WorkbenchFixture {
protected:
    WindowMenu() {
        Start(Demo());
        bench->Window().activateWindow();
        test::WaitUntilIdle();
    }
    void Analyse() {
        AddAnalysis();
        bench->GetAnalyses().Recompute();
        QTest::qWait(500); // the window looks now and then at what has changed
        test::WaitUntilIdle();
    }
    struct State {
        bool enabled, checked;
        bool operator==(const State&) const = default;
    };
    /// Of traces, spectrum and maps.
    std::vector<State> States() {
        Opens("menuWindow");
        std::vector<State> states;
        for (const char* item : {"windowTraces", "windowSpectrum", "windowMaps"}) {
            states.push_back({Item(item).isEnabled(), Item(item).isChecked()});
        }
        return states;
    }
};

TEST_F(WindowMenu, ChecksTheActiveViewAndOffersThoseThatAreShown) {
    EXPECT_THAT(States(), ElementsAre(State{true, true}, State{false, false}, State{false, false}));
    Analyse();
    EXPECT_THAT(States(), ElementsAre(State{true, true}, State{true, false}, State{true, false}));
}

TEST_F(WindowMenu, ActivatesTheViewThatIsChosen) {
    Analyse();
    Item("windowSpectrum").trigger();
    EXPECT_THAT(States(), ElementsAre(State{true, false}, State{true, true}, State{true, false}));
    EXPECT_TRUE(MenuTitles().contains("Spectrum"));
    Item("windowTraces").trigger();
    EXPECT_THAT(States(), ElementsAre(State{true, true}, State{true, false}, State{true, false}));
    EXPECT_TRUE(MenuTitles().contains("Traces"));
}

TEST_F(WindowMenu, AViewThatTheUserOpensGetsTheFocus) {
    Analyse();
    for (const auto& [item, view] :
         {std::pair("viewSpectrum", ViewKind::Spectrum), std::pair("viewMaps", ViewKind::Maps),
          std::pair("viewTraces", ViewKind::Traces), std::pair("viewHeads", ViewKind::Heads)}) {
        bench->GetViews().Hide(view);
        Item(item).trigger();
        test::WaitUntilIdle();
        EXPECT_TRUE(bench->GetViews().IsActive(view)) << item;
        const QWidget* focused = bench->Window().focusWidget();
        const QWidget* shown = bench->Middle().Views().ViewOf(view);
        EXPECT_TRUE(focused == shown || shown->isAncestorOf(focused)) << item;
    }
}

TEST_F(WindowMenu, ViewsThatComeBackLeaveTheFocusToTheTraces) {
    Analyse();
    bench->GetViews().Activate(ViewKind::Maps);
    Leave();
    Start();
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Maps));
    EXPECT_TRUE(bench->GetViews().IsActive(ViewKind::Traces));
}

TEST_F(WindowMenu, AViewThatTheUserOpensIsSeenWhereAnotherFilledTheWindow) {
    Analyse();
    bench->GetViews().Hide(ViewKind::Maps);
    bench->Middle().Views().Fill(ViewKind::Traces);
    Item("viewMaps").trigger();
    test::WaitUntilIdle();
    EXPECT_TRUE(bench->Middle().Views().ViewOf(ViewKind::Maps)->isVisible());
}

/// The first item of the active view's menu.
class TitleItem : public WindowMenu {
protected:
    QAction& TitleOf(ViewKind view) {
        bench->GetViews().Activate(view);
        TheChild& child = *bench->Middle().Views().ViewOf(view);
        QMetaObject::invokeMethod(&child.GetMenu(), "aboutToShow");
        return *child.GetMenu().Item(child.GetResInfo().command);
    }
};

TEST_F(TitleItem, IsCheckedAndClosesTheViewThatItNames) {
    Analyse();
    for (const auto& [view, text] :
         {std::pair(ViewKind::Spectrum, "&View Spectrum"), std::pair(ViewKind::Traces, "&View Traces")}) {
        QAction& item = TitleOf(view);
        EXPECT_EQ(item.text(), text);
        EXPECT_TRUE(item.isChecked());
        item.trigger();
        test::WaitUntilIdle();
        EXPECT_FALSE(bench->GetViews().IsShown(view));
    }
}

TEST_F(WindowMenu, AnotherViewIsActiveOnceTheActiveOneIsClosed) {
    Analyse();
    review::OpenViews& views = bench->GetViews();
    views.Activate(ViewKind::Spectrum);
    views.Hide(ViewKind::Spectrum);
    EXPECT_TRUE(views.IsActive(ViewKind::Traces));
    views.Activate(ViewKind::Maps);
    views.Hide(ViewKind::Traces);
    EXPECT_TRUE(views.IsActive(ViewKind::Maps)) << "as before";
    views.Hide(ViewKind::Maps);
    EXPECT_FALSE(MenuTitles().contains("Maps"));
}

TEST_F(TitleItem, OfFlatMapsShowsThoseOnHeads) {
    Analyse();
    QAction& ofFlat = TitleOf(ViewKind::Maps);
    EXPECT_EQ(ofFlat.text(), "&View 3D Spectral Maps");
    EXPECT_FALSE(ofFlat.isChecked());
    ofFlat.trigger();
    test::WaitUntilIdle();
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Heads));
    QAction& ofHeads = TitleOf(ViewKind::Heads);
    EXPECT_TRUE(ofHeads.isChecked());
    ofHeads.trigger();
    test::WaitUntilIdle();
    EXPECT_FALSE(bench->GetViews().IsShown(ViewKind::Heads));
}

TEST_F(WindowMenu, HasNoKeyThatBeginsABatchOnItsWay) {
    int keys = 0;
    for (const QAction* item : bench->Window().findChildren<QAction*>()) {
        for (const QKeySequence& key : item->shortcuts()) {
            ++keys;
            const Qt::KeyboardModifiers held = key[0].keyboardModifiers();
            EXPECT_FALSE(held.testFlag(Qt::ControlModifier) && held.testFlag(Qt::ShiftModifier))
                << key.toString().toStdString();
        }
    }
    EXPECT_GE(keys, 15);
}

TEST_F(WindowMenu, OffersNothingWithoutARecording) {
    bench->GetDocuments().Close();
    EXPECT_THAT(States(), ElementsAre(State{false, false}, State{false, false}, State{false, false}));
}

} // namespace
