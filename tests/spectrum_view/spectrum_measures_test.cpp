// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/table_window.h"
#include "spectrum_view/dialogs/measures_dialog.h"
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/scripted_user.h"

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using testing::ElementsAre;
using testing::StartsWith;

class MeasuresOfView : public test::ViewFixture {
protected:
    test::FakeServices services;
};

TEST_F(MeasuresOfView, AreCopiedFromTheCellsOfTheGrid) {
    UseFiveBipolarChannels();
    Add();
    Open();
    Draw();
    Item(kCmCopyMeasures).trigger();
    ASSERT_EQ(services.clipboard.Texts().size(), 1u);
    EXPECT_THAT(services.clipboard.Texts()[0], StartsWith("A\tAbs\tMean\tRel"));
}

TEST_F(MeasuresOfView, AreAnEmptyTextWithoutAnAnalysis) {
    Open().ChangeViewMode(Layout::Mode::Scalp);
    view->CmCopy2ClpBrd();
    EXPECT_THAT(services.clipboard.Texts(), ElementsAre(""));
}

TEST_F(MeasuresOfView, ThatCannotBeWrittenLeaveTheCommandOnTheScalpAndEndInABox) {
    Add();
    Open().CmHeadView();
    Draw();
    window.platform.onNumber = [](double) { throw std::runtime_error("no number"); };
    EXPECT_THROW(view->CmCopy2ClpBrd(), std::runtime_error);
    test::ScriptedUser user;
    user.AnswersMessage(owl::kIdOk);
    Item(kCmCopyMeasures).trigger();
    ASSERT_EQ(user.Messages().size(), 1u);
    EXPECT_EQ(user.Messages()[0].text, "This could not be finished:\nno number");
    EXPECT_TRUE(services.clipboard.Texts().empty());
}

TEST_F(MeasuresOfView, AreChosenInADialogThatGivesTheFocusBack) {
    Add();
    Show();
    window.SetFocus();
    ASSERT_EQ(window.focusWidget(), &window);
    test::ScriptedUser user;
    user.Meets<SpectMeasDlg>([](SpectMeasDlg& dialog) { dialog.accept(); });
    Item(kCmMeasures).trigger();
    EXPECT_EQ(user.DialogsShown(), 1);
    EXPECT_EQ(window.focusWidget(), view.get());
}

TEST_F(MeasuresOfView, PickedGridIsLaidOutAndTheFirstTraceStays) {
    UseFiveBipolarChannels();
    Add();
    Open(300, 212);
    EXPECT_EQ(view->SendMessage(kGridPicked, 2U << 16U | 3U), 0);
    EXPECT_EQ(view->GetState().grid, (GridSize{2, 3}));
    EXPECT_EQ(view->GetState().firstTrace, 0u);
    EXPECT_THAT(TraceNames(), ElementsAre("A", "B", "C", "D", "E", "-"));
    EXPECT_EQ(Rectangles()[4], (owl::TRect{100, 100, 200, 200}));
}

TEST_F(MeasuresOfView, PickerIsOneAtATime) {
    Add();
    Show();
    view->CmSpectraTable();
    const QPointer<TTableWnd> first(view->findChild<TTableWnd*>());
    ASSERT_FALSE(first.isNull());
    EXPECT_TRUE(first->isVisible());
    view->CmSpectraTable();
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(view->findChildren<TTableWnd*>().size(), 1);
}

} // namespace
