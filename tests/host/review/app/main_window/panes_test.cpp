// SPDX-License-Identifier: GPL-3.0-or-later
// The room that each view gets, and how the user goes from one to another.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/panel_beside.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QSplitter>
#include <QTest>
#include <QToolButton>

namespace {

using namespace orvanta;
using review::ViewKind;

class Panes : public test::WorkbenchFixture {
protected:
    Panes() {
        Start(Demo());
        AddAnalysis();
        Size();
        bench->GetAnalyses().Recompute();
        test::WaitUntilIdle();
    }

    void Size() const {
        bench->Window().showNormal();
        bench->Window().resize(1366, 700);
        test::WaitUntilIdle();
    }
    TheChild& View(ViewKind kind) const { return *bench->Middle().Views().ViewOf(kind); }
    review::FramedView& Frame(ViewKind kind) const {
        return *dynamic_cast<review::FramedView*>(View(kind).Panes().parentWidget());
    }
    double TracesShare() const {
        return Frame(ViewKind::Traces).height() /
               static_cast<double>(Frame(ViewKind::Traces).height() + Frame(ViewKind::Spectrum).height());
    }
    double SpectrumShare(ViewKind maps = ViewKind::Maps) const {
        return Frame(ViewKind::Spectrum).width() /
               static_cast<double>(Frame(ViewKind::Spectrum).width() + Frame(maps).width());
    }
    /// The user drags the handle between traces and the others, or that between spectrum and maps.
    void DragsTracesTo(int height) const { Drag(bench->Middle().Views(), height, Qt::Vertical); }
    void DragsSpectrumTo(int width) const {
        Drag(*dynamic_cast<QSplitter*>(Frame(ViewKind::Spectrum).parentWidget()), width, Qt::Horizontal);
    }
    static QStringList Captions(const QMenu& menu) {
        QStringList captions;
        for (const QAction* item : menu.actions()) {
            captions << item->text();
        }
        return captions;
    }
    void ComeBack() {
        Leave();
        Start();
        Size();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus != nullptr ? focus : &bench->Window(), key, modifiers);
        test::WaitUntilIdle();
    }

private:
    static void Drag(QSplitter& splitter, int to, Qt::Orientation orientation) {
        QWidget& handle = *splitter.handle(1);
        const QPoint from = handle.rect().center();
        const int way = to - splitter.sizes()[0];
        const QPoint target = from + (orientation == Qt::Vertical ? QPoint(0, way) : QPoint(way, 0));
        QTest::mousePress(&handle, Qt::LeftButton, {}, from);
        QTest::mouseMove(&handle, target);
        // The handle went along.
        QTest::mouseRelease(&handle, Qt::LeftButton, {}, from);
        test::WaitUntilIdle();
    }
};

TEST_F(Panes, FrameTheOneThatHasTheFocus) {
    bench->Window().activateWindow();
    const auto framed = [this](ViewKind kind) {
        review::FramedView& frame = Frame(kind);
        return frame.grab().toImage().pixelColor(1, frame.height() / 2) ==
               frame.palette().color(QPalette::Highlight);
    };
    for (const ViewKind focused : {ViewKind::Spectrum, ViewKind::Traces, ViewKind::Maps}) {
        bench->GetViews().Activate(focused);
        test::WaitUntilIdle();
        for (const ViewKind kind : {ViewKind::Spectrum, ViewKind::Traces, ViewKind::Maps}) {
            EXPECT_EQ(framed(kind), kind == focused);
        }
    }
}

TEST_F(Panes, GiveHalfToTheTracesAndThreeFifthsOfTheRestToTheSpectrum) {
    EXPECT_NEAR(TracesShare(), 0.5, 0.01);
    EXPECT_NEAR(SpectrumShare(), 0.6, 0.01);
}

TEST_F(Panes, KeepTheUsersSizesWhileViewsComeAndGo) {
    DragsTracesTo(250);
    DragsSpectrumTo(600);
    const double traces = TracesShare();
    const double spectrum = SpectrumShare();
    EXPECT_NEAR(traces, 0.38, 0.03);
    EXPECT_NEAR(spectrum, 0.44, 0.03);
    bench->GetViews().Hide(ViewKind::Maps);
    EXPECT_NEAR(TracesShare(), traces, 0.005);
    bench->GetAnalyses().Show(ViewKind::Maps);
    test::WaitUntilIdle();
    EXPECT_NEAR(TracesShare(), traces, 0.005);
    EXPECT_NEAR(SpectrumShare(), spectrum, 0.005);
    bench->GetViews().Hide(ViewKind::Traces);
    bench->GetAnalyses().Show(ViewKind::Traces);
    test::WaitUntilIdle();
    EXPECT_NEAR(TracesShare(), traces, 0.005);
}

TEST_F(Panes, KeepTheUsersSizesForAnotherRecordingAndTheNextDay) {
    DragsTracesTo(250);
    DragsSpectrumTo(600);
    const double traces = TracesShare();
    const double spectrum = SpectrumShare();
    bench->GetDocuments().Open(Demo("other.edf"));
    AddAnalysis();
    bench->GetAnalyses().Recompute();
    test::WaitUntilIdle();
    EXPECT_NEAR(TracesShare(), traces, 0.005);
    EXPECT_NEAR(SpectrumShare(), spectrum, 0.005);
    ComeBack();
    EXPECT_NEAR(TracesShare(), traces, 0.005);
    EXPECT_NEAR(SpectrumShare(), spectrum, 0.005);
}

TEST_F(Panes, KeepSizesForEachArrangement) {
    DragsTracesTo(250);
    const double traces = TracesShare();
    bench->GetViews().Arrange(review::Arrangement::TracesBeside);
    test::WaitUntilIdle();
    EXPECT_NEAR(Frame(ViewKind::Traces).width(), 683, 10);
    bench->GetViews().Arrange(review::Arrangement::TracesAbove);
    test::WaitUntilIdle();
    EXPECT_NEAR(TracesShare(), traces, 0.005);
}

TEST_F(Panes, GrowAndShrinkWithTheWindow) {
    bench->Window().resize(700, 450);
    test::WaitUntilIdle();
    bench->Window().resize(1366, 700);
    test::WaitUntilIdle();
    EXPECT_NEAR(TracesShare(), 0.5, 0.01);
    EXPECT_NEAR(SpectrumShare(), 0.6, 0.01);
}

TEST_F(Panes, LetTheActiveViewFillTheWindowUntilEscapeIsPressed) {
    bench->Window().activateWindow();
    View(ViewKind::Spectrum).SetFocus();
    test::WaitUntilIdle();
    Press(Qt::Key_F11);
    EXPECT_TRUE(bench->Middle().Views().IsFilled());
    EXPECT_TRUE(View(ViewKind::Spectrum).isVisible());
    EXPECT_FALSE(View(ViewKind::Traces).isVisible());
    EXPECT_FALSE(View(ViewKind::Maps).isVisible());
    EXPECT_TRUE(Frame(ViewKind::Spectrum).findChild<QToolButton*>("view_fill")->isChecked());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(bench->Middle().Views().IsFilled());
    EXPECT_TRUE(View(ViewKind::Traces).isVisible());
    EXPECT_TRUE(View(ViewKind::Maps).isVisible());
    EXPECT_NEAR(TracesShare(), 0.5, 0.01);
}

TEST_F(Panes, LetTheTracesFillTheWindowUntilEscapeHasNothingElseToEnd) {
    bench->Window().activateWindow();
    View(ViewKind::Traces).SetFocus();
    test::WaitUntilIdle();
    Press(Qt::Key_F11);
    ASSERT_TRUE(bench->Middle().Views().IsFilled());
    Press(Qt::Key_Space); // plays
    Press(Qt::Key_Escape);
    EXPECT_TRUE(bench->Middle().Views().IsFilled());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(bench->Middle().Views().IsFilled());
}

TEST_F(Panes, AreReachedOneAfterTheOtherWithF6) {
    bench->Window().activateWindow();
    View(ViewKind::Traces).SetFocus();
    test::WaitUntilIdle();
    QWidget* sideBar = Frame(ViewKind::Spectrum).Panel().Panel();
    ASSERT_NE(sideBar, nullptr);
    Press(Qt::Key_F6);
    EXPECT_TRUE(View(ViewKind::Spectrum).hasFocus());
    Press(Qt::Key_F6);
    EXPECT_TRUE(sideBar->isAncestorOf(QApplication::focusWidget()));
    Press(Qt::Key_F6);
    EXPECT_EQ(bench->Middle().GetActiveChild(), &View(ViewKind::Maps));
    Press(Qt::Key_F6);
    EXPECT_TRUE(View(ViewKind::Traces).hasFocus());
    Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(bench->Middle().GetActiveChild(), &View(ViewKind::Maps));
    Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(sideBar->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(Panes, HideTheSideBarWithF9AndRememberIt) {
    ASSERT_NE(bench->Middle().Views().SideBar(), nullptr);
    EXPECT_TRUE(bench->Middle().Views().SideBar()->IsShown());
    EXPECT_LE(Frame(ViewKind::Spectrum).Panel().Panel()->width(), 0.46 * Frame(ViewKind::Spectrum).width());
    bench->Window().activateWindow();
    View(ViewKind::Traces).SetFocus();
    test::WaitUntilIdle();
    Opens("menuView"); // the window looks at itself from time to time only
    Press(Qt::Key_F9);
    EXPECT_FALSE(bench->Middle().Views().SideBar()->IsShown());
    EXPECT_FALSE(Frame(ViewKind::Spectrum).findChild<QToolButton*>("view_panel")->isChecked());
    ComeBack();
    ASSERT_NE(bench->Middle().Views().SideBar(), nullptr);
    EXPECT_FALSE(bench->Middle().Views().SideBar()->IsShown());
    Frame(ViewKind::Spectrum).findChild<QToolButton*>("view_panel")->click();
    EXPECT_TRUE(bench->Middle().Views().SideBar()->IsShown());
}

TEST_F(Panes, LeaveTheSideBarOutWhereItWouldTakeTheSpectrumItsRoom) {
    bench->Window().resize(700, 600);
    test::WaitUntilIdle();
    EXPECT_FALSE(bench->Middle().Views().SideBar()->IsShown());
    EXPECT_TRUE(Frame(ViewKind::Spectrum).findChild<QToolButton*>("view_panel")->isVisible());
    bench->Window().resize(1366, 700);
    test::WaitUntilIdle();
    EXPECT_TRUE(bench->Middle().Views().SideBar()->IsShown());
}

TEST_F(Panes, ShowMapsOnHeadsInThePlaceOfTheFlatOnes) {
    const double spectrum = SpectrumShare();
    Item("viewHeads").trigger();
    test::WaitUntilIdle();
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Heads));
    EXPECT_FALSE(bench->GetViews().IsShown(ViewKind::Maps));
    EXPECT_NEAR(SpectrumShare(ViewKind::Heads), spectrum, 0.005);
    EXPECT_TRUE(Captions(View(ViewKind::Heads).GetMenu()).contains("&Lock Maps"));
    Item("viewMaps").trigger();
    EXPECT_FALSE(bench->GetViews().IsShown(ViewKind::Heads));
    ASSERT_TRUE(bench->GetViews().IsShown(ViewKind::Maps));
    EXPECT_FALSE(Captions(View(ViewKind::Maps).GetMenu()).contains("&Lock Maps"));
}

TEST_F(Panes, ShowTheKindOfMapsAgainThatTheRecordingHad) {
    bench->GetAnalyses().Show(ViewKind::Heads);
    bench->GetDocuments().Open(Demo("other.edf"));
    AddAnalysis();
    bench->GetAnalyses().Recompute();
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Maps));
    bench->GetDocuments().Open(folder.Path("demo.edf"));
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Heads));
    ComeBack();
    EXPECT_TRUE(bench->GetViews().IsShown(ViewKind::Heads));
    EXPECT_FALSE(bench->GetViews().IsShown(ViewKind::Maps));
}

} // namespace
