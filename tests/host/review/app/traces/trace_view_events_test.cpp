// SPDX-License-Identifier: GPL-3.0-or-later
// Marking events in the trace view.
#include "tests/host/review/app/traces/trace_view_fixture.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QMenu>
#include <QTranslator>
#include <gmock/gmock.h>

namespace orvanta::review {
namespace {

using test::TraceViewTest;

class TraceViewEvents : public TraceViewTest {
protected:
    QMenu* Labels() const { return view->findChild<QMenu*>("EventLabels"); }
    /// Chooses a label of those that are offered.
    void Choose(const QString& label) const {
        QMenu* menu = Labels();
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions()) {
            if (action->text() == label) {
                action->trigger();
                menu->close();
                Draw();
                return;
            }
        }
        FAIL() << label.toStdString() << " is not offered";
    }
    const EventRecord& Event(std::size_t index) const { return events.Events().at(index); }
    static double BeginOf(const EventRecord& event) { return event.Interval.GetBeginPtr()->Seconds(); }
    static double EndOf(const EventRecord& event) { return event.Interval.GetEndPtr()->Seconds(); }
};

TEST_F(TraceViewEvents, DragMarksAStretch) {
    Drag({112, 80}, {232, 90}); // 1 s to 3 s
    Choose("artifact");
    ASSERT_EQ(events.Events().size(), 3);
    EXPECT_EQ(Event(0).Label, "artifact");
    EXPECT_EQ(Event(0).Class, EventClass::State);
    EXPECT_NEAR(BeginOf(Event(0)), 1, 1e-6);
    EXPECT_NEAR(EndOf(Event(0)), 3, 1e-6);
    EXPECT_TRUE(events.IsOwn(0));
}

TEST_F(TraceViewEvents, DragOnTheRulerMarksAStretchToo) {
    Drag({112, 340}, {232, 340});
    Choose("bad");
    EXPECT_EQ(Event(0).Label, "bad");
}

TEST_F(TraceViewEvents, LabelsOfTheRecordingAreOfferedForTheirClass) {
    Drag({112, 80}, {232, 90});
    QStringList offered;
    for (const QAction* action : Labels()->actions()) {
        offered << action->text();
    }
    EXPECT_EQ(offered.front(), "seizure");
    EXPECT_FALSE(offered.contains("spike")); // a spot event
    EXPECT_EQ(offered.back(), "&Other Label...");
    Labels()->close();
}

TEST_F(TraceViewEvents, LabelUsedLastIsOfferedFirst) {
    Drag({112, 80}, {232, 90});
    Choose("eyes closed");
    Drag({312, 80}, {432, 90});
    EXPECT_EQ(Labels()->actions().front()->text(), "eyes closed");
    Labels()->close();
    Draw();
    CloseView();
    MakeView();
    Drag({312, 80}, {432, 90});
    EXPECT_EQ(Labels()->actions().front()->text(), "eyes closed");
    Labels()->close();
}

TEST_F(TraceViewEvents, ClickInMarkingModeMarksAMoment) {
    view->RunCommand(kCmMarkMode);
    Click({172, 80});
    Choose("spike");
    EXPECT_EQ(Event(0).Class, EventClass::Spot);
    EXPECT_NEAR(BeginOf(Event(0)), 2, 0.01);
    EXPECT_EQ(BeginOf(Event(0)), EndOf(Event(0)));
    EXPECT_TRUE(window.channels.empty());
}

TEST_F(TraceViewEvents, KeyMarksWhereTheMouseIsElseInTheMiddle) {
    Hover({112, 80});
    Press(Qt::Key_M);
    Choose("blink");
    EXPECT_NEAR(BeginOf(Event(0)), 1, 0.01);
    Press(Qt::Key_M); // nowhere
    Choose("blink");
    EXPECT_NEAR(BeginOf(Event(1)), 5, 0.01);
}

TEST_F(TraceViewEvents, AreUndoneAndRedone) {
    Drag({112, 80}, {232, 90});
    Choose("artifact");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(events.Events().size(), 2);
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(events.Events().size(), 3);
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(events.Events().size(), 3);
}

TEST_F(TraceViewEvents, TheMenuTellsWhatIsUndoneOrThatNothingIs) {
    const auto undo = [this] {
        QMetaObject::invokeMethod(&view->GetMenu(), "aboutToShow");
        return view->GetMenu().Item(kCmUndo)->text().toStdString();
    };
    EXPECT_EQ(undo(), "&Undo\tCtrl+Z");
    events.Add({"P&G", EventClass::Spot, XTimeInterval(XTime::FromSeconds(1), XTime::FromSeconds(1))});
    EXPECT_EQ(undo(), "&Undo Add P&&G\tCtrl+Z");
}

TEST(TraceCommands, ShowTheirKeysInTheLanguageInUse) {
    EXPECT_EQ(WithKey(kCmPageForward, "On"), "On\tPgDown");
    EXPECT_EQ(WithKey(kCmLessTime, "Less"), "Less\tCtrl++");
    EXPECT_EQ(WithKey(kCmTraceFont, "Font"), "Font") << "has none";
    QTranslator german;
    ASSERT_TRUE(
        german.load(QLocale("de_DE"), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    QApplication::installTranslator(&german);
    EXPECT_EQ(WithKey(kCmLessTime, "Less"), "Less\tStrg++");
    EXPECT_EQ(WithKey(kCmDeleteEvent, "Delete"), "Delete\tEntf");
    QApplication::removeTranslator(&german);
}

TEST_F(TraceViewEvents, OwnOnesAreDeleted) {
    Drag({112, 80}, {232, 90});
    Choose("artifact"); // selected now
    Press(Qt::Key_Delete);
    EXPECT_EQ(events.Events().size(), 2);
}

TEST_F(TraceViewEvents, ThoseOfTheRecordingAreNotDeleted) {
    test::ScriptedUser user;
    user.AnswersMessage(owl::kIdOk);
    Press(Qt::Key_N);
    Press(Qt::Key_Delete);
    EXPECT_EQ(events.Events().size(), 2);
    EXPECT_EQ(user.Messages().at(0).text,
              "This event is part of the recording itself and cannot be deleted. Only "
              "events that were marked here can.");
}

TEST_F(TraceViewEvents, EnterEditsTheSelectedOne) {
    Drag({112, 80}, {232, 90});
    Choose("artifact");
    test::ScriptedUser user;
    user.MeetsDialog([](QDialog& dialog) { dialog.reject(); });
    Press(Qt::Key_Return);
    EXPECT_EQ(user.DialogsShown(), 1);
}

TEST_F(TraceViewEvents, DoubleClickOnALabelEditsIt) {
    Drag({112, 80}, {232, 90});
    Choose("artifact");
    test::ScriptedUser user;
    user.MeetsDialog([](QDialog& dialog) { dialog.reject(); });
    QTest::mouseDClick(view, Qt::LeftButton, {}, {118, 8});
    EXPECT_EQ(user.DialogsShown(), 1);
}

TEST_F(TraceViewEvents, AreNotMarkedByAClickOutsideOfTheMarkingMode) {
    Drag({112, 80}, {115, 82}); // not far enough for a drag
    EXPECT_EQ(Labels(), nullptr);
    EXPECT_EQ(window.channels.size(), 1);
}

} // namespace
} // namespace orvanta::review
