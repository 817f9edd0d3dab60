// SPDX-License-Identifier: GPL-3.0-or-later
// The list of events at the edge of the window.
#include "host/review/app/events/event_editor.h"
#include "host/review/app/events/event_list.h"
#include "host/review/app/main_window/event_dock.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"
#include "tests/support/qt/form_user.h"

#include <QHeaderView>
#include <QLabel>
#include <QTest>
#include <QTreeView>

namespace {

using namespace orvanta;
using test::FormUser;

constexpr int kTime = 0;
constexpr int kSource = 5;

class EventDock : public test::WorkbenchFixture {
protected:
    review::EventDock& Dock() const { return *bench->Window().findChild<review::EventDock*>("EventDock"); }
    QTreeView& List() const { return *Dock().findChild<QTreeView*>("tvEvents"); }
    /// Seconds at which the page of the traces begins.
    double PageBegin() const {
        const TraceCursorType& cursor = *Recording().GetTraceCursor();
        return static_cast<double>(cursor.GetSample(cursor.GetStartRecTime(), Sample::Mode::Memory, 0)) /
               cursor.GetMemDataSR();
    }
    void LeaveAndComeBack() {
        Leave();
        Start();
    }
};

TEST_F(EventDock, IsHiddenForANewUser) {
    Start(Demo());
    EXPECT_FALSE(Dock().isVisible());
    EXPECT_FALSE(Item("viewEvents").isChecked());
}

TEST_F(EventDock, ComesUpAtTheRightWithTheFocusInItsList) {
    Start(Demo());
    Item("viewEvents").trigger();
    EXPECT_TRUE(Dock().isVisible());
    EXPECT_EQ(bench->Window().dockWidgetArea(&Dock()), Qt::RightDockWidgetArea);
    EXPECT_EQ(bench->Window().focusWidget(), &List());
    Opens("menuView");
    EXPECT_TRUE(Item("viewEvents").isChecked());
}

TEST_F(EventDock, ArrowKeysGoFromEventToEventAndTheTracesFollow) {
    Start(Demo("demo.edf", 1, 2));
    Item("viewEvents").trigger();
    QTest::keyClick(&List(), Qt::Key_End);
    EXPECT_GT(PageBegin(), 60);
    QTest::keyClick(&List(), Qt::Key_Home);
    EXPECT_LT(PageBegin(), 10);
}

TEST_F(EventDock, GoesWhenTheUserAsksAgainOrClosesIt) {
    Start(Demo());
    Item("viewEvents").trigger();
    Item("viewEvents").trigger();
    EXPECT_FALSE(Dock().isVisible());
    Item("viewEvents").trigger();
    Dock().close();
    Opens("menuView");
    EXPECT_FALSE(Item("viewEvents").isChecked());
    LeaveAndComeBack();
    EXPECT_FALSE(Dock().isVisible());
}

TEST_F(EventDock, IsThereOnlyWhileARecordingIsOpen) {
    Start(Demo());
    Item("viewEvents").trigger();
    bench->GetDocuments().Close();
    EXPECT_FALSE(Dock().isVisible());
    EXPECT_FALSE(Item("viewEvents").isEnabled());
    bench->GetDocuments().Open(Demo("b.edf"));
    EXPECT_TRUE(Dock().isVisible());
}

TEST_F(EventDock, IsFoundAgainWithItsWidthAndColumns) {
    Start(Demo());
    bench->Window().resize(1200, 700);
    Item("viewEvents").trigger();
    bench->Window().resizeDocks({&Dock()}, {420}, Qt::Horizontal);
    List().header()->actions()[kSource - 1]->setChecked(true);
    List().header()->actions()[kTime]->setChecked(false);
    test::WaitUntilIdle();
    const int width = Dock().width();
    LeaveAndComeBack();
    EXPECT_TRUE(Dock().isVisible());
    EXPECT_NEAR(Dock().width(), width, 4);
    EXPECT_FALSE(List().isColumnHidden(kSource));
    EXPECT_TRUE(List().isColumnHidden(kTime));
    EXPECT_TRUE(List().header()->actions()[kSource - 1]->isChecked());
    EXPECT_FALSE(List().header()->actions()[kTime]->isChecked());
}

TEST_F(EventDock, FollowsTheEvents) {
    Start(Demo());
    Item("viewEvents").trigger();
    const int before = List().model()->rowCount();
    Events().Add({"spike", EventClass::Spot, {XTime::FromSeconds(3), XTime::FromSeconds(3)}});
    EXPECT_EQ(List().model()->rowCount(), before + 1);
    Events().Undo();
    EXPECT_EQ(List().model()->rowCount(), before);
}

} // namespace
