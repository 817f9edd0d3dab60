// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse does in the trace view.
#include "host/review/app/traces/trace_overlay.h"
#include "tests/host/review/app/traces/trace_view_fixture.h"

#include <gmock/gmock.h>

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
