// SPDX-License-Identifier: GPL-3.0-or-later
// That the user of the tests is a strict one.
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace {

using orvanta::test::FormUser;
using orvanta::test::ScriptedUser;

TEST(ScriptedUser, AnswersInOrder) {
    ScriptedUser user;
    user.AnswersMessage(owl::kIdNo).ChoosesColor(0x123456).Enters("name").ChoosesFile(std::nullopt);
    user.ChoosesFont(owl::TFont{"Serif", 14});
    EXPECT_EQ(user.ShowMessage(nullptr, "text", "caption", 4), owl::kIdNo);
    EXPECT_EQ(user.AskColor(nullptr, 1), owl::TColor{0x123456});
    EXPECT_EQ(user.AskText(nullptr, {}), "name");
    EXPECT_EQ(user.AskFileToSave(nullptr, {}), std::nullopt);
    EXPECT_EQ(user.AskFont(nullptr, {})->face, "Serif");
}

TEST(ScriptedUser, FailsWhenSomethingUnexpectedComesUp) {
    EXPECT_NONFATAL_FAILURE(ScriptedUser().ShowMessage(nullptr, "disk full", "Error", 16),
                            "unexpected message: Error: disk full; the user expects nothing more");
    EXPECT_NONFATAL_FAILURE(ScriptedUser().AskColor(nullptr, 0), "unexpected color");
    owl::FileQuestion question;
    question.title = "Open";
    EXPECT_NONFATAL_FAILURE(ScriptedUser().AskFileToOpen(nullptr, question), "unexpected file: Open");
    QDialog dialog;
    dialog.setWindowTitle("Settings");
    EXPECT_NONFATAL_FAILURE(ScriptedUser().RunModal(dialog), "unexpected dialog: Settings");
    EXPECT_FALSE(dialog.isVisible());
}

TEST(ScriptedUser, FailsWhenAnotherKindComesUp) {
    ScriptedUser user;
    user.Enters("name");
    EXPECT_NONFATAL_FAILURE(user.AskFont(nullptr, {}), "unexpected font: Verdana; the user expects a text");
    EXPECT_EQ(user.AskText(nullptr, {}), "name") << "the step is still there";
}

TEST(ScriptedUser, FailsWhenAStepIsLeftOver) {
    EXPECT_NONFATAL_FAILURE(ScriptedUser().AnswersMessage(owl::kIdOk),
                            "the user was to meet a message, and none came up");
}

TEST(ScriptedUser, FailsWhenADialogIsLeftOpen) {
    QDialog dialog;
    dialog.setWindowTitle("Settings");
    ScriptedUser user;
    user.MeetsDialog([](QDialog&) {});
    EXPECT_NONFATAL_FAILURE(user.RunModal(dialog), "the user left the dialog open: Settings");
    EXPECT_FALSE(dialog.isVisible());
}

class FormUserTest : public testing::Test {
protected:
    FormUserTest() {
        auto* rows = new QVBoxLayout(&form_);
        const auto add = [&](const char* name, QWidget* control) {
            control->setObjectName(name);
            rows->addWidget(control);
        };
        add("button", button_);
        add("edit", new QLineEdit);
        add("memo", new QPlainTextEdit);
        add("box", box_);
        box_->setEditable(true);
        add("spinner", new QSpinBox);
        add("list", list_);
        list_->addTopLevelItem(new QTreeWidgetItem(QStringList{"alpha"}));
        form_.show();
    }

    QWidget form_;
    QPushButton* button_ = new QPushButton("&Save");
    QComboBox* box_ = new QComboBox;
    QTreeWidget* list_ = new QTreeWidget;
    FormUser user_{form_};
};

TEST_F(FormUserTest, FailsOnAControlThatIsNotThere) {
    EXPECT_NONFATAL_FAILURE(user_.Clicks("absent"), "no control absent");
    EXPECT_NONFATAL_FAILURE(user_.Types("absent", "x"), "no control absent");
    EXPECT_NONFATAL_FAILURE(user_.TextOf("absent"), "no control absent");
}

TEST_F(FormUserTest, FailsOnAControlThatTheUserCannotUse) {
    int clicks = 0;
    QObject::connect(button_, &QPushButton::clicked, [&] { ++clicks; });
    button_->setEnabled(false);
    EXPECT_NONFATAL_FAILURE(user_.Clicks("button"), "button is disabled");
    button_->setEnabled(true);
    button_->hide();
    EXPECT_NONFATAL_FAILURE(user_.Clicks("button"), "the user cannot see button");
    EXPECT_EQ(clicks, 0);
    button_->show();
    user_.Clicks("button");
    EXPECT_EQ(clicks, 1);
}

TEST_F(FormUserTest, FailsOnWhatAControlDoesNotTake) {
    EXPECT_NONFATAL_FAILURE(user_.Types("button", "x"), "button takes no text");
    EXPECT_NONFATAL_FAILURE(user_.SetsNumber("spinner", 1000), "spinner does not take the number");
    EXPECT_NONFATAL_FAILURE(user_.SelectsRows("list", {"alpha", "beta"}), "no row beta in list");
    EXPECT_EQ(user_.SelectedRowsOf("list"), QStringList("alpha"));
}

TEST_F(FormUserTest, TypesOverWhatWasThere) {
    for (const char* control : {"edit", "memo", "box"}) {
        user_.Types(control, "earlier");
        user_.Types(control, "Größe, µV");
        EXPECT_EQ(user_.TextOf(control), "Größe, µV");
        user_.Types(control, "");
        EXPECT_EQ(user_.TextOf(control), "");
    }
    user_.Types("memo", "two\nlines");
    EXPECT_EQ(user_.TextOf("memo"), "two\nlines");
}

TEST_F(FormUserTest, ReadsTextsWithoutMnemonics) {
    EXPECT_EQ(user_.TextOf("button"), "Save");
    user_.Types("edit", "a&b");
    EXPECT_EQ(user_.TextOf("edit"), "a&b");
}

} // namespace
