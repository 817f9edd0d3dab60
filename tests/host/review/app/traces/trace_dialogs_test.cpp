// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/channels_dialog.h"
#include "host/review/app/traces/go_to_dialog.h"
#include "tests/support/qt/form_user.h"

#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>
#include <gmock/gmock.h>

namespace orvanta::review {
namespace {

using test::FormUser;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(GoToDialog, SaysWhatIsWrongAndStaysUntilTheTimeIsGood) {
    GoToDialog dialog(nullptr, {5, 60, {}});
    dialog.show();
    auto& edit = *dialog.findChild<QLineEdit*>("Edit");
    EXPECT_EQ(edit.text(), "5 s");
    FormUser(dialog).Types("Edit", "61");
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(FormUser(dialog).TextOf("LabelError"),
              "the recording has no such time (type one from 0 s to 0:01:00)");
    FormUser(dialog).Types("Edit", "+10");
    EXPECT_EQ(FormUser(dialog).TextOf("LabelError"), "");
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.Seconds(), 15);
}

class ChannelsDialogTest : public testing::Test {
protected:
    ChannelsDialogTest() : dialog(nullptr, Channels(), {"F3"}) { dialog.show(); }

    static std::vector<TraceChannel> Channels() {
        std::vector<TraceChannel> channels(3);
        channels[0].name = "Fp1";
        channels[1].name = "F3";
        channels[2].name = "ECG";
        channels[2].bad = true;
        return channels;
    }

    ChannelsDialog dialog;
    QTreeWidget& list = *dialog.findChild<QTreeWidget*>("List");
};

TEST_F(ChannelsDialogTest, ShowsWhatIsHiddenAndBad) {
    EXPECT_THAT(dialog.Hidden(), ElementsAre("F3"));
    EXPECT_THAT(dialog.Bad(), ElementsAre("ECG"));
}

TEST_F(ChannelsDialogTest, TakesTheSelectedRowsByKey) {
    list.setFocus();
    list.selectAll();
    QTest::keyClick(&list, Qt::Key_Space); // the first is shown: all are hidden
    EXPECT_THAT(dialog.Hidden(), ElementsAre("ECG", "F3", "Fp1"));
    QTest::keyClick(&list, Qt::Key_B);
    EXPECT_THAT(dialog.Bad(), ElementsAre("ECG", "F3", "Fp1"));
    QTest::keyClick(&list, Qt::Key_B);
    EXPECT_THAT(dialog.Bad(), IsEmpty());
}

TEST_F(ChannelsDialogTest, TakesAllByItsButtons) {
    const FormUser user(dialog);
    user.Clicks("ButtonNone");
    EXPECT_EQ(dialog.Hidden().size(), 3);
    user.Clicks("ButtonAll");
    EXPECT_THAT(dialog.Hidden(), IsEmpty());
    user.Clicks("ButtonGood");
    EXPECT_THAT(dialog.Bad(), IsEmpty());
}

} // namespace
} // namespace orvanta::review
