// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse does in the trace view.
#include "host/review/app/traces/trace_overlay.h"
#include "tests/host/review/app/traces/trace_view_fixture.h"

#include <gmock/gmock.h>

#include <QMenu>
#include <QRegularExpression>

#include <stdexcept>

namespace orvanta::review {
namespace {

using test::TraceViewTest;
using testing::ElementsAre;

class TraceViewMouse : public TraceViewTest {
protected:
    const CursorInput& Cursor() const {
        for (QObject* child : view->children()) {
            if (const auto* overlay = dynamic_cast<TraceOverlay*>(child)) {
                return overlay->Cursor();
            }
        }
        throw std::logic_error("nothing follows the mouse");
    }
};

TEST_F(TraceViewMouse, WheelScrollsByATenthOfThePage) {
    Turn(-1, {300, 100});
    EXPECT_EQ(Start(), 1);
    Turn(-2, {300, 100});
    EXPECT_EQ(Start(), 3);
    Turn(1, {300, 100});
    EXPECT_EQ(Start(), 2);
}

TEST_F(TraceViewMouse, WheelWithCtrlKeepsTheTimeUnderTheMouse) {
    view->GoTo(XTime::FromSeconds(31)); // from 30 to 40
    ASSERT_EQ(Start(), 30);
    Turn(1, {352, 100}, Qt::ControlModifier); // in the middle
    EXPECT_EQ(Length(), 5);
    EXPECT_DOUBLE_EQ(Start(), 32.5);
}

TEST_F(TraceViewMouse, OverviewGoesWhereItIsClickedAndDragged) {
    Click({352, 370}); // the middle of the recording
    EXPECT_DOUBLE_EQ(Start(), 25);
    Drag({352, 370}, {651, 370});
    EXPECT_DOUBLE_EQ(Start(), 50);
}

TEST_F(TraceViewMouse, RectangleZoomsAndBackspaceGoesBack) {
    Drag({112, 140}, {232, 200}, Qt::RightButton); // 1 s to 3 s, F3 alone
    EXPECT_DOUBLE_EQ(Start(), 1);
    EXPECT_NEAR(Length(), 2, 0.02);
    Click({300, 250});
    EXPECT_EQ(window.channels.back(), "F3");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Start(), 0);
    EXPECT_EQ(Length(), 10);
    Press(Qt::Key_Backspace); // nothing more to go back to
    EXPECT_EQ(Length(), 10);
}

TEST_F(TraceViewMouse, AltDragZoomsToo) {
    Drag({112, 40}, {232, 300}, Qt::LeftButton, Qt::AltModifier);
    EXPECT_DOUBLE_EQ(Start(), 1);
}

TEST_F(TraceViewMouse, MiddleButtonPans) {
    Drag({352, 100}, {292, 100}, Qt::MiddleButton);
    EXPECT_DOUBLE_EQ(Start(), 1);
}

TEST_F(TraceViewMouse, ClickPointsOtherViewsAtChannelAndTime) {
    Click({172, 150});
    EXPECT_THAT(window.channels, ElementsAre("F3"));
    ASSERT_EQ(window.times.size(), 1);
    EXPECT_NEAR(window.times[0], 2, 0.01);
}

TEST_F(TraceViewMouse, NameIsSelectedAndTakenBack) {
    Click({20, 80});
    Press(Qt::Key_B);
    EXPECT_TRUE(test::SensorOf(*recording, "Fp1")->IsBad());
    Click({20, 80});
    Press(Qt::Key_B);
    EXPECT_EQ(window.message, "Select a channel first: click its name, or press Shift+Down.");
}

TEST_F(TraceViewMouse, CursorReadsTheLineUnderIt) {
    Hover({172, 80}); // at 2 s: sample 16 of Fp1, without the filter's change
    EXPECT_EQ(Cursor().kind, CursorInput::Kind::Cursor);
    ASSERT_FALSE(Cursor().texts.empty());
    EXPECT_TRUE(Cursor().texts.front().starts_with("Fp1  ")) << Cursor().texts.front();
    EXPECT_EQ(Cursor().texts.back(), "00:00:02.00");
    Hover({20, 80}); // a name
    EXPECT_EQ(Cursor().kind, CursorInput::Kind::None);
}

TEST_F(TraceViewMouse, CursorReadsWhatThePageBringsUnderIt) {
    Hover({172, 80});
    ASSERT_EQ(Cursor().texts.back(), "00:00:02.00");
    Press(Qt::Key_PageDown); // 10 s on
    Draw();
    EXPECT_EQ(Cursor().texts.back(), "00:00:12.00");
    EXPECT_TRUE(window.message.ends_with("00:00:12.00")) << window.message;
}

TEST_F(TraceViewMouse, CursorReadsThePageThatCameBehindAnother) {
    Hover({172, 80});
    const std::string value = Cursor().texts.front();
    Press(Qt::Key_PageDown);
    Press(Qt::Key_PageDown);
    Draw();
    EXPECT_NE(Cursor().texts.front(), "Fp1  no data");
    Press(Qt::Key_Home);
    Draw();
    EXPECT_EQ(Cursor().texts.front(), value);
}

TEST_F(TraceViewMouse, CursorLeavesWhatACommandSaidInTheMessageBar) {
    Hover({172, 80});
    Press(Qt::Key_N); // the first event, at 20 s
    Draw();
    EXPECT_EQ(window.message, "seizure");
    EXPECT_NE(Cursor().texts.back(), "00:00:02.00"); // the page moved
}

TEST_F(TraceViewMouse, MarksWholeMilliseconds) {
    Press(Qt::Key_M, Qt::ShiftModifier);
    Click({174, 80}); // its middle is at 122.5 / 60 s
    QMenu* labels = view->findChild<QMenu*>("EventLabels");
    ASSERT_NE(labels, nullptr);
    labels->actions().front()->trigger();
    EXPECT_EQ(events.Events().front().Interval.GetBeginPtr()->Seconds(), 2.042);
}

TEST_F(TraceViewMouse, DragMeasuresInTheMeasuringMode) {
    Press(Qt::Key_R);
    Drag({112, 80}, {142, 90}); // half a second
    EXPECT_EQ(Cursor().kind, CursorInput::Kind::Measure);
    Press(Qt::Key_R);
    Drag({112, 80}, {142, 90});
    EXPECT_EQ(Cursor().kind, CursorInput::Kind::Stretch);
}

TEST_F(TraceViewMouse, NegativeIsUpUnlessTheUserTurnsItOver) {
    Hover({172, 80});
    ASSERT_TRUE(Cursor().dot.has_value());
    const int middle = 85; // of Fp1
    const int negativeUp = Cursor().dot->y;
    view->RunCommand(kCmNegativeUp);
    EXPECT_EQ(window.message, "All traces are drawn with positive values upwards.");
    Hover({173, 80});
    Hover({172, 80});
    EXPECT_NEAR(Cursor().dot->y - middle, middle - negativeUp, 1);
    EXPECT_NE(Cursor().dot->y, negativeUp);
    CloseView();
    MakeView();
    Hover({172, 80});
    EXPECT_NE(Cursor().dot->y, negativeUp); // remembered
}

TEST_F(TraceViewMouse, SaysWhichAnalysisUsedTheTime) {
    view->SetShades(
        {{{XTime::FromSeconds(1), XTime::FromSeconds(3)}, 0x0000FF, "Main analysis: Resting", false}});
    Hover({172, 80}); // 2 s
    EXPECT_EQ(Cursor().texts.back(), "Main analysis: Resting");
    Hover({292, 80}); // 4 s
    EXPECT_NE(Cursor().texts.back(), "Main analysis: Resting");
}

TEST_F(TraceViewMouse, RightClickOffersWhatCanBeDoneThere) {
    const auto offered = [&](const QPoint& at) {
        Drag(at, at, Qt::RightButton);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QStringList texts;
        for (const QAction* item : menu == nullptr ? QList<QAction*>() : menu->actions()) {
            texts << item->text().section('\t', 0, 0).remove('&');
        }
        if (menu != nullptr) {
            menu->close();
        }
        return texts.filter(QRegularExpression(".+")).join(", ").toStdString();
    };
    EXPECT_EQ(offered({20, 80}), "Bad Channel, Hide Channel, Show All Channels, Channels..., Larger Traces, "
                                 "Smaller Traces, Negative Upwards");
    EXPECT_EQ(offered({300, 200}), "Mark an Event Here..., Mark Events by Clicks, Measure by Dragging, Go to "
                                   "Time..., Zoom Back, Bad Channel, Hide Channel");
    view->GoTo(XTime::FromSeconds(31)); // 30 to 40: the spike at 30 s
    Draw();
    EXPECT_EQ(offered({58, 8}), "Edit Event..., Delete Event, Previous Event, Next Event");
}

TEST_F(TraceViewMouse, RightClickOnANameSelectsTheChannel) {
    Drag({20, 150}, {20, 150}, Qt::RightButton);
    QApplication::activePopupWidget()->close();
    Press(Qt::Key_B);
    EXPECT_TRUE(test::SensorOf(*recording, "F3")->IsBad());
}

TEST_F(TraceViewMouse, MarksWhereTheMenuWasAskedFor) {
    Drag({232, 200}, {232, 200}, Qt::RightButton); // 3 s
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    menu->actions().front()->trigger();
    menu->close();
    test::WaitUntilIdle();
    auto* labels = view->findChild<QMenu*>("EventLabels");
    ASSERT_NE(labels, nullptr);
    labels->actions().front()->trigger();
    labels->close();
    EXPECT_EQ(events.Events().front().Label, "spike");
    EXPECT_NEAR(events.Events().front().Interval.GetBeginPtr()->Seconds(), 3, 0.02);
}

TEST_F(TraceViewMouse, CtrlDragMeasures) {
    Drag({112, 80}, {142, 90}, Qt::LeftButton, Qt::ControlModifier); // half a second
    EXPECT_EQ(Cursor().kind, CursorInput::Kind::Measure);
    ASSERT_EQ(Cursor().texts.size(), 4);
    EXPECT_EQ(Cursor().texts[0], "Fp1");
    EXPECT_EQ(Cursor().texts[1], "Δt 0.500 s  (2.00 Hz)");
    EXPECT_TRUE(Cursor().texts[2].starts_with("ΔV "));
    EXPECT_TRUE(Cursor().texts[3].starts_with("peak to peak "));
}

} // namespace
} // namespace orvanta::review
