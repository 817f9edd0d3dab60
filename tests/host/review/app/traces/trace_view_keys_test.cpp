// SPDX-License-Identifier: GPL-3.0-or-later
// What the keys of the trace view do.
#include "tests/host/review/app/traces/trace_view_fixture.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QComboBox>
#include <QLineEdit>

namespace orvanta::review {
namespace {

using test::FormUser;
using test::TraceViewTest;

using TraceViewKeys = TraceViewTest;

/// The boxes of the tool bar in their order.
QString BoxText(TraceView& view, int box) {
    return view.GetToolBar().findChildren<QComboBox*>().at(box)->currentText();
}
constexpr int kMontageBox = 0;
constexpr int kPageBox = 1;
constexpr int kGainBox = 2;

TEST_F(TraceViewKeys, TurnPagesAndMoveBySeconds) {
    struct Step {
        int key;
        Qt::KeyboardModifiers modifiers;
        double start;
    };
    for (const Step& step : {
             Step{Qt::Key_PageDown, Qt::NoModifier, 10},
             Step{Qt::Key_PageDown, Qt::NoModifier, 20},
             Step{Qt::Key_PageUp, Qt::NoModifier, 10},
             Step{Qt::Key_Right, Qt::NoModifier, 11},
             Step{Qt::Key_Left, Qt::NoModifier, 10},
             Step{Qt::Key_Right, Qt::ControlModifier, 10.1},
             Step{Qt::Key_Left, Qt::ControlModifier, 10},
             Step{Qt::Key_Right, Qt::ShiftModifier, 20},
             Step{Qt::Key_End, Qt::NoModifier, 50},
             Step{Qt::Key_PageDown, Qt::NoModifier, 50},
             Step{Qt::Key_Home, Qt::NoModifier, 0},
             Step{Qt::Key_Left, Qt::NoModifier, 0},
         }) {
        Press(step.key, step.modifiers);
        EXPECT_DOUBLE_EQ(Start(), step.start) << step.key;
    }
}

TEST_F(TraceViewKeys, ChangeTheTimeOnThePage) {
    Press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(Length(), 5);
    EXPECT_EQ(BoxText(*view, kPageBox), "5 s");
    Press(Qt::Key_Minus, Qt::ControlModifier);
    Press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(Length(), 15);
}

TEST_F(TraceViewKeys, ChangeTheGainOfAllTypes) {
    EXPECT_EQ(BoxText(*view, kGainBox), "7 µV/mm");
    Press(Qt::Key_Plus);
    EXPECT_EQ(BoxText(*view, kGainBox), "5 µV/mm");
    Press(Qt::Key_Minus);
    Press(Qt::Key_Minus);
    EXPECT_EQ(BoxText(*view, kGainBox), "10 µV/mm");
}

TEST_F(TraceViewKeys, TakeTheSignsWithAndWithoutShift) {
    Press(Qt::Key_Plus, Qt::ShiftModifier);
    Press(Qt::Key_Equal);
    EXPECT_EQ(BoxText(*view, kGainBox), "3 µV/mm");
    Press(Qt::Key_Underscore, Qt::ShiftModifier);
    EXPECT_EQ(BoxText(*view, kGainBox), "5 µV/mm");
}

TEST_F(TraceViewKeys, MarkTheSelectedChannelBadAndGoodAgain) {
    Press(Qt::Key_Down, Qt::ShiftModifier); // selects the first
    Press(Qt::Key_B);
    EXPECT_TRUE(test::SensorOf(*recording, "Fp1")->IsBad());
    EXPECT_EQ(window.message, "Fp1 is bad now: analyses, maps and average references leave it out.");
    Press(Qt::Key_B);
    EXPECT_FALSE(test::SensorOf(*recording, "Fp1")->IsBad());
}

TEST_F(TraceViewKeys, MarkNothingBadWithoutASelectedChannel) {
    Press(Qt::Key_B);
    EXPECT_EQ(window.message, "Select a channel first: click its name, or press Shift+Down.");
}

TEST_F(TraceViewKeys, LeaveABadChannelOutOfTheAverageInUse) {
    const MontageList& list = *recording->GetMontageList();
    std::size_t average = 0;
    while (list.Get(average)->GetKind() != MontageType::Kind::AverageReference) {
        ++average;
    }
    recording->ChangeMntg(average, true);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_B);
    EXPECT_EQ(recording->GetTraceInfo()->GetMtg().GetChn(0)->GetCommonAverage().size(), 2);
    Press(Qt::Key_B);
    EXPECT_EQ(recording->GetTraceInfo()->GetMtg().GetChn(0)->GetCommonAverage().size(), 3);
}

TEST_F(TraceViewKeys, HideTheSelectedChannelAndShowAllAgain) {
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_H);
    EXPECT_EQ(window.message, "Fp1 is hidden. Shift+H shows all channels again.");
    Click({300, 60}); // where Fp1 was
    EXPECT_EQ(window.channels, std::vector<std::string>{"F3"});
    Press(Qt::Key_H, Qt::ShiftModifier);
    Click({300, 60});
    EXPECT_EQ(window.channels.back(), "Fp1");
}

TEST_F(TraceViewKeys, ScrollChannelsThatFindNoRoom) {
    Press(Qt::Key_Down, Qt::ControlModifier); // two on the page
    Press(Qt::Key_Down);
    Click({300, 60});
    EXPECT_EQ(window.channels.back(), "F3");
    Press(Qt::Key_Down); // no further
    Press(Qt::Key_Up);
    Click({300, 60});
    EXPECT_EQ(window.channels.back(), "Fp1");
}

TEST_F(TraceViewKeys, ShiftMMarksByClicksUntilEsc) {
    Press(Qt::Key_M, Qt::ShiftModifier);
    EXPECT_EQ(view->cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(window.message, "A click marks a moment, a drag a stretch. Esc ends it.");
    Press(Qt::Key_R); // another mode takes its place
    EXPECT_EQ(window.message, "A drag measures time, frequency and voltage. Esc ends it.");
    Press(Qt::Key_Escape);
    EXPECT_EQ(view->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(TraceViewKeys, GoToATime) {
    test::ScriptedUser user;
    user.MeetsDialog([](QDialog& dialog) {
        FormUser(dialog).Types("Edit", "25.5 s");
        QTest::keyClick(dialog.findChild<QLineEdit*>("Edit"), Qt::Key_Return);
    });
    Press(Qt::Key_G);
    EXPECT_EQ(Start(), 25.5);
}

TEST_F(TraceViewKeys, GoFromEventToEventAndForgetItWithEscape) {
    Press(Qt::Key_N);
    EXPECT_EQ(window.message, "seizure");
    EXPECT_EQ(Start(), 19);
    Press(Qt::Key_N);
    EXPECT_EQ(window.message, "spike");
    EXPECT_EQ(Start(), 29);
    Press(Qt::Key_N);
    EXPECT_EQ(window.message, "There is no later event.");
    Press(Qt::Key_N, Qt::ShiftModifier);
    EXPECT_EQ(window.message, "seizure");
    EXPECT_EQ(Start(), 19);
    Press(Qt::Key_Escape);
    Press(Qt::Key_Delete);
    EXPECT_EQ(window.message, "Select an event first: click its label, or press N.");
}

TEST_F(TraceViewKeys, AreRememberedByTheNextView) {
    Press(Qt::Key_Plus, Qt::ControlModifier);
    Press(Qt::Key_Plus);
    CloseView();
    MakeView();
    EXPECT_EQ(Length(), 5);
    EXPECT_EQ(BoxText(*view, kGainBox), "5 µV/mm");
}

TEST_F(TraceViewKeys, FindSettingsThatMakeSenseWhateverIsStored) {
    CloseView();
    window.platform.user.values["Traces/PageSeconds"] = -3;
    window.platform.user.values["Traces/GainEEG"] = 1e300;
    window.platform.user.values["Traces/LowCut"] = -1;
    MakeView();
    EXPECT_EQ(Length(), 10);
    EXPECT_EQ(BoxText(*view, kGainBox), "7 µV/mm");
}

TEST_F(TraceViewKeys, KeepHiddenChannelsForEachMontage) {
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_H);
    recording->ChangeMntg(1, true);
    EXPECT_EQ(BoxText(*view, kMontageBox).toStdString(), recording->GetTraceInfo()->GetMtg().GetName());
    recording->ChangeMntg(0, true);
    Click({300, 60});
    EXPECT_EQ(window.channels.back(), "F3"); // Fp1 is still hidden
}

TEST_F(TraceViewKeys, GoOnToThoseOfOthersWhenTheViewHasNone) {
    QKeyEvent other(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier);
    QApplication::sendEvent(view, &other);
    EXPECT_FALSE(other.isAccepted());
}

} // namespace
} // namespace orvanta::review
