// SPDX-License-Identifier: GPL-3.0-or-later
// The side bar beside the view.
#include "side_bar/side_bar_form.h"
#include "side_bar/spectra_panel.h"
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace {

using namespace orvanta;
using testing::ElementsAre;
using testing::IsEmpty;

class BesideTheView : public test::ViewFixture {
protected:
    BesideTheView() { UseFiveBipolarChannels(); }

    /// On the screen with the focus, for the first time.
    Spectrum& ShowFocused(int width = 1000, int height = 600) {
        Make();
        window.resize(width, height);
        Panes().resize(width, height);
        window.show();
        Panes().show();
        RunQueue();
        Focus();
        return *view;
    }
    void Focus() {
        view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::SetFocus)},
                        owl::FocusArgs{nullptr}});
        RunQueue();
    }
    QSplitter& Panes() { return view->Panes(); }
    TSideBarFormBase* SideBar() { return Find<TSideBarFormBase>(); }
    TFormListenerSpectra1* Panel() { return Find<TFormListenerSpectra1>(); }
    test::FormUser User() { return test::FormUser(*Panel()); }

    test::FakeServices services;
    test::ScriptedUser user;

private:
    template <typename Form>
    Form* Find() {
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            if (auto* form = dynamic_cast<Form*>(widget)) {
                return form;
            }
        }
        return nullptr;
    }
};

TEST_F(BesideTheView, StandsOnTheOtherSideOfTheSplitter) {
    Add();
    ShowFocused();
    ASSERT_EQ(Panes().count(), 2);
    EXPECT_EQ(Panes().widget(0), SideBar());
    EXPECT_EQ(Panes().widget(1), view.get());
    EXPECT_TRUE(SideBar()->isVisible());
    EXPECT_TRUE(Panel()->isVisible());
    EXPECT_TRUE(Panes().updatesEnabled());
}

TEST_F(BesideTheView, TakesTheWidthItWantsAndLeavesTheRestToTheView) {
    Add();
    ShowFocused(1366, 700);
    const int wanted = SideBar()->sizeHint().width();
    EXPECT_NEAR(SideBar()->width(), wanted, 2);
    EXPECT_NEAR(view->width(), 1366 - wanted - Panes().handleWidth(), 2);
    Panes().resize(1600, 700);
    EXPECT_NEAR(SideBar()->width(), wanted, 2); // the view takes what is added
    EXPECT_GE(Panes().handleWidth(), 4);
}

TEST_F(BesideTheView, LeavesRoomForTheViewInASmallWindow) {
    Add();
    ShowFocused(480, 300);
    EXPECT_GE(view->width(), 150);
    EXPECT_EQ(Panes().height(), 300);
}

TEST_F(BesideTheView, HasTheTabOfTheSpectraInFront) {
    Add();
    ShowFocused();
    ASSERT_GE(SideBar()->GetPageCount(), 1);
    const auto* tab = SideBar()->findChild<QAbstractButton*>();
    EXPECT_EQ(tab->text(), "t-test");
    EXPECT_TRUE(tab->isChecked());
}

TEST_F(BesideTheView, HasOneTabOutsideOfStatisticsModeTwo) {
    Add();
    manager.SetStatMode(1);
    ShowFocused();
    EXPECT_EQ(SideBar()->GetPageCount(), 1);
    manager.SetStatMode(2); // too late
    Focus();
    EXPECT_EQ(SideBar()->GetPageCount(), 1);
}

TEST_F(BesideTheView, HasTheTabOfTheRegressionInStatisticsModeTwo) {
    Add();
    manager.SetStatMode(2);
    ShowFocused();
    EXPECT_EQ(SideBar()->GetPageCount(), 2);
    QStringList captions;
    for (const auto* tab : SideBar()->findChildren<QAbstractButton*>()) {
        if (tab->text() == "t-test" || tab->text() == "BCI") {
            captions << tab->text() + (tab->isChecked() ? " in front" : "");
        }
    }
    EXPECT_EQ(captions, (QStringList{"t-test in front", "BCI"}));
    EXPECT_TRUE(Panel()->isVisible());
}

TEST_F(BesideTheView, IsToldOfANewMontage) {
    Add();
    Add();
    ShowFocused();
    EXPECT_EQ(User().RowsOf("lvSecondaryList").size(), 1);
    SpectMacroResult* other = *(manager.begin() + 1);
    Use("A = +Fp1 -F3");
    other->Compute(nullptr); // of another montage than the main one
    Panel()->SomethingChanged();
    EXPECT_THAT(User().RowsOf("lvSecondaryList"), IsEmpty());
    view->SendMessage(spectrum_view::kMontageSelector, 0);
    EXPECT_EQ(User().RowsOf("lvSecondaryList").size(), 1);
}

TEST_F(BesideTheView, ShowsTheMainThatIsChosen) {
    Add();
    const SpectMacroResult* second = Add();
    ShowFocused();
    User().SelectsRow("lvMainList", 1);
    RunQueue();
    EXPECT_EQ(view->GetTraces()[0].main, second->GetSpectrum(Channel(0)));
    EXPECT_EQ(window.focusWidget(), view.get());
    EXPECT_THAT(window.platform.gui.Progresses(), IsEmpty());
}

TEST_F(BesideTheView, ShowsTheSecondaryThatIsChosen) {
    Add();
    const SpectMacroResult* second = Add();
    ShowFocused();
    User().SelectsRow("lvSecondaryList", 0);
    RunQueue();
    EXPECT_EQ(view->GetTraces()[0].secondary, second->GetSpectrum(Channel(0)));
    EXPECT_THAT(window.platform.gui.Progresses(), IsEmpty());
}

TEST_F(BesideTheView, IsReachedWithTheTabKeyAndByItsLetters) {
    Add();
    Add();
    ShowFocused();
    window.activateWindow();
    view->SetFocus();
    RunQueue();
    QStringList visited;
    for (int i = 0; i < 30 && !visited.contains("lvMainList"); ++i) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        visited << window.focusWidget()->objectName();
    }
    EXPECT_TRUE(visited.contains("lvMainList")) << visited.join(' ').toStdString();
    QTest::keyClick(window.focusWidget(), Qt::Key_Down);
    EXPECT_EQ(manager.GetMain(), *(manager.begin() + 1));
    EXPECT_EQ(window.focusWidget(), view.get());
    QTest::keyClick(&window, Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(window.focusWidget()->objectName(), "lvMainList");
    QTest::keyClick(window.focusWidget(), Qt::Key_Up);
    EXPECT_EQ(manager.GetMain(), *manager.begin());
}

TEST_F(BesideTheView, KeepsAThresholdBeingTypedFromTheKeysOfTheView) {
    Add();
    Add();
    ShowFocused();
    window.activateWindow();
    const double gain = spectrum_view::Display().gain;
    auto& box = *Panel()->findChild<QComboBox*>("cbThreshold");
    box.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(box.lineEdit(), "0.01");
    RunQueue();
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_EQ(manager.GetPThreshold(), 0.01);
    EXPECT_EQ(window.focusWidget(), &box);
    EXPECT_EQ(spectrum_view::Display().gain, gain);
    EXPECT_TRUE(view->IsCreated());
}

TEST_F(BesideTheView, IsLeftAloneByAMontageWithoutTraces) {
    Add();
    Add();
    ShowFocused();
    recording->GetTraceInfo()->SetMtg(MontageType());
    Panel()->SomethingChanged();
    RunQueue();
    EXPECT_EQ(User().RowsOf("lvMainList").size(), 2);
    EXPECT_EQ(User().RowsOf("lvSecondaryList").size(), 1); // both were computed of the earlier montage
    User().Clicks("BtnErpProcess");
    RunQueue();
    EXPECT_THAT(User().RowsOf("lvSecondaryList"), IsEmpty());
}

TEST_F(BesideTheView, LeavesNothingOfAnErasedSpectrum) {
    Add();
    const SpectMacroResult* second = Add();
    ShowFocused();
    user.AnswersMessage(owl::kIdYes);
    User().Clicks("BtnEraseSpectra");
    EXPECT_TRUE(view->GetTraces().empty()); // until it is drawn
    RunQueue();
    EXPECT_EQ(view->GetTraces()[0].main, second->GetSpectrum(Channel(0)));
    EXPECT_EQ(view->GetTraces()[0].secondary, nullptr);
}

TEST_F(BesideTheView, IsTakenOutWhenTheViewEnds) {
    Add();
    ShowFocused();
    const QPointer<TSideBarFormBase> sideBar = SideBar();
    view->Destroy();
    EXPECT_EQ(Panes().count(), 1);
    EXPECT_FALSE(sideBar != nullptr && sideBar->isVisible());
    EXPECT_EQ(Setting("Spectrum/NumRows"), 4);
    view.reset();
    EXPECT_EQ(sideBar, nullptr);
}

TEST_F(BesideTheView, MayEndTheViewFromItsPanel) {
    Add();
    ShowFocused();
    window.platform.gui.OnProgress = [this] { view->Destroy(); };
    User().Clicks("BtnErpProcess");
    RunQueue();
    EXPECT_FALSE(view->IsCreated());
    window.platform.gui.OnProgress = {};
}

TEST_F(BesideTheView, GoesWithAViewThatIsDeletedAtOnce) {
    Add();
    ShowFocused();
    const QPointer<TSideBarFormBase> sideBar = SideBar();
    view.reset();
    EXPECT_EQ(sideBar, nullptr);
}

TEST_F(BesideTheView, MayShowOneManagerTwice) {
    SpectMacroResult* first = Add();
    Add();
    ShowFocused();
    Spectrum other(window, recording.get(), &manager, false);
    other.Create();
    manager.Remove(first);
    delete first;
    Panel()->grab();
    Focus();
    Panel()->SomethingChanged();
    EXPECT_EQ(User().RowsOf("lvMainList").size(), 1);
}

} // namespace
