// SPDX-License-Identifier: GPL-3.0-or-later
// What a user sees who opens a recording for the first time.
#include "host/chart_view/the_child.h"
#include "host/review/app/main_window/notice_strip.h"
#include "host/review/app/main_window/panel_beside.h"
#include "host/review/app/main_window/starter_macros.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"
#include "tests/support/qt/form_user.h"

#include <QDialog>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

namespace {

using namespace orvanta;
using review::ViewKind;
using test::FormUser;
using testing::ElementsAre;

class FirstLook : public test::WorkbenchFixture {
protected:
    FirstLook() { review::InstallStarterMacros(folder.Path("data/MACRO/")); }

    std::vector<ViewKind> Shown() const {
        std::vector<ViewKind> shown;
        for (const ViewKind kind : review::kViewKinds) {
            if (bench->GetViews().IsShown(kind)) {
                shown.push_back(kind);
            }
        }
        return shown;
    }
    review::NoticeStrip& Offer() const { return bench->Middle().Offer(); }
    /// The user makes an analysis from a macro that everybody has.
    void Analyse() {
        user.MeetsDialog([](QDialog& form) {
            FormUser(form).SelectsRows("ListBoxMacro", {"Resting eyes closed"});
            FormUser(form).Clicks("BtnAutoAverage");
        });
        Item("analysisNew").trigger();
        test::WaitUntilIdle();
    }
    const review::FramedView& Frame(ViewKind kind) const {
        const TheChild* view = bench->Middle().Views().ViewOf(kind);
        for (const review::FramedView* frame : bench->Middle().Views().Shown()) {
            if (&frame->View() == view) {
                return *frame;
            }
        }
        throw std::logic_error("the view is not shown");
    }
};

TEST_F(FirstLook, TheTracesFillTheWindowBeforeThereIsAnAnalysis) {
    Start(Demo());
    EXPECT_THAT(Shown(), ElementsAre(ViewKind::Traces));
    EXPECT_EQ(Frame(ViewKind::Traces).size(), bench->Middle().Views().size());
}

TEST_F(FirstLook, TheTracesAreShownWhenNothingElseWouldBe) {
    Start(Demo());
    bench->GetViews().Hide(ViewKind::Traces);
    Leave();
    Start();
    EXPECT_THAT(Shown(), ElementsAre(ViewKind::Traces));
}

TEST_F(FirstLook, AnAnalysisIsOfferedUntilThereIsOne) {
    Start();
    EXPECT_FALSE(Offer().isVisible());
    bench->GetDocuments().Open(Demo());
    ASSERT_TRUE(Offer().isVisible());
    auto* button = Offer().findChild<QPushButton*>("offerNew");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->focusPolicy() & Qt::TabFocus, Qt::TabFocus);
    user.MeetsDialog([](QDialog& form) { FormUser(form).PressesEscape(); });
    button->click();
    EXPECT_TRUE(Offer().isVisible());
    Analyse();
    EXPECT_FALSE(Offer().isVisible());
    bench->GetDocuments().Open(Demo("other.edf"));
    EXPECT_TRUE(Offer().isVisible());
}

TEST_F(FirstLook, TheOfferIsNotMadeAgainOnceItWasClosed) {
    Start(Demo());
    for (auto* button : Offer().findChildren<QToolButton*>()) {
        if (button->toolTip() == "Do not offer this again") {
            button->click();
        }
    }
    EXPECT_FALSE(Offer().isVisible());
    Leave();
    Start();
    EXPECT_FALSE(Offer().isVisible());
}

TEST_F(FirstLook, NoAnalysisIsOfferedThatCannotBeMade) {
    auto setup = Setup();
    setup.bridge = nullptr;
    Start(setup, Demo());
    EXPECT_FALSE(Offer().isVisible());
}

TEST_F(FirstLook, SpectrumMapsAndSideBarAppearWithTheFirstAnalysis) {
    Start(Demo());
    bench->Window().resize(1366, 700);
    Analyse();
    EXPECT_THAT(Shown(), ElementsAre(ViewKind::Traces, ViewKind::Spectrum, ViewKind::Maps));
    ASSERT_NE(Frame(ViewKind::Spectrum).Panel().Panel(), nullptr);
    EXPECT_TRUE(Frame(ViewKind::Spectrum).Panel().Panel()->isVisible());
}

TEST_F(FirstLook, AViewThatTheUserClosedStaysClosedWithTheNextAnalysis) {
    Start(Demo());
    Analyse();
    bench->GetViews().Hide(ViewKind::Maps);
    bench->GetDocuments().Open(Demo("other.edf"));
    EXPECT_THAT(Shown(), ElementsAre(ViewKind::Traces));
    Analyse();
    EXPECT_THAT(Shown(), ElementsAre(ViewKind::Traces, ViewKind::Spectrum));
}

TEST_F(FirstLook, TheWindowFillsTheScreen) {
    Start();
    EXPECT_TRUE(bench->Window().isMaximized());
}

TEST_F(FirstLook, TheWindowIsAsTheUserLeftIt) {
    Start();
    bench->Window().showNormal();
    bench->Window().setGeometry(20, 30, 700, 500);
    Leave();
    Start();
    EXPECT_FALSE(bench->Window().isMaximized());
    EXPECT_EQ(bench->Window().geometry(), QRect(20, 30, 700, 500));
}

TEST_F(FirstLook, AWindowThatIsTooSmallToWorkInIsMadeLarger) {
    Start();
    bench->Window().showNormal();
    bench->Window().setMinimumSize(1, 1);
    bench->Window().setGeometry(20, 30, 300, 200);
    ASSERT_LT(bench->Window().height(), 400);
    Leave();
    Start();
    EXPECT_GE(bench->Window().width(), 640);
    EXPECT_GE(bench->Window().height(), 400);
}

TEST_F(FirstLook, AWindowThatLiesOnNoScreenIsMovedOntoOne) {
    Start();
    bench->Window().showNormal();
    bench->Window().setGeometry(5000, 4000, 700, 500);
    Leave();
    Start();
    EXPECT_TRUE(bench->Window().screen()->geometry().intersects(bench->Window().geometry()));
}

} // namespace
