// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/input_dialog.h"
#include "host/toolkit/modal_gateway.h"
#include "tests/host/toolkit/modal_hand.h"
#include "tests/support/qt/form_user.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

using orvanta::test::FormUser;
using orvanta::test::ModalHand;

void Press(QDialog& dialog, QDialogButtonBox::StandardButton button) {
    dialog.findChild<QDialogButtonBox*>()->button(button)->click();
}

const owl::TextQuestion kQuestion{"Macro Name", "&Name:", "alpha", 255};

TEST(ColorChooser, StartsWithTheColorAndAnswersTheChosenOne) {
    ModalHand hand;
    hand.Meets<QColorDialog>([](QColorDialog& chooser) {
        EXPECT_EQ(chooser.currentColor(), QColor(255, 128, 0));
        chooser.setCurrentColor(QColor(1, 2, 3));
        Press(chooser, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(owl::CurrentModalGateway().AskColor(nullptr, 0x000080FF), owl::TColor{0x00030201});
}

TEST(ColorChooser, AnswersNothingWhenCancelled) {
    ModalHand hand;
    hand.Meets<QColorDialog>([](QColorDialog& chooser) { Press(chooser, QDialogButtonBox::Cancel); });
    EXPECT_EQ(owl::CurrentModalGateway().AskColor(nullptr, 0x000080FF), std::nullopt);
}

TEST(FontChooser, KeepsTheFontWhenNothingIsChanged) {
    for (const int height : {8, 9, 11, 12, 13, 14, 16, 17, 20, 33}) {
        const owl::TFont font{"Verdana", height, height > 12, height > 16};
        ModalHand hand;
        hand.Meets<QFontDialog>([](QFontDialog& chooser) { Press(chooser, QDialogButtonBox::Ok); });
        const auto answer = owl::CurrentModalGateway().AskFont(nullptr, font);
        ASSERT_TRUE(answer.has_value());
        EXPECT_EQ(*answer, font) << height;
    }
}

TEST(FontChooser, AnswersTheChosenFontInPixels) {
    ModalHand hand;
    hand.Meets<QFontDialog>([](QFontDialog& chooser) {
        QFont font = chooser.currentFont();
        EXPECT_EQ(font.style(), QFont::StyleNormal);
        font.setPixelSize(24);
        font.setStyleName("");
        font.setBold(true);
        chooser.setCurrentFont(font);
        Press(chooser, QDialogButtonBox::Ok);
    });
    const auto answer = owl::CurrentModalGateway().AskFont(nullptr, {"Verdana", 12});
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->height, 24);
    EXPECT_TRUE(answer->bold);
    EXPECT_FALSE(answer->italic);
}

TEST(FontChooser, AnswersNothingWhenCancelled) {
    ModalHand hand;
    hand.Meets<QFontDialog>([](QFontDialog& chooser) { Press(chooser, QDialogButtonBox::Cancel); });
    EXPECT_EQ(owl::CurrentModalGateway().AskFont(nullptr, {}), std::nullopt);
}

TEST(InputDialog, StartsWithTheTextSelected) {
    owl::TInputDialog dialog(nullptr, kQuestion);
    dialog.show();
    auto* edit = dialog.findChild<QLineEdit*>("edit");
    EXPECT_EQ(dialog.windowTitle(), "Macro Name");
    EXPECT_EQ(edit->selectedText(), "alpha");
    EXPECT_EQ(dialog.focusWidget(), edit);
}

TEST(InputDialog, LeadsFromItsPromptToTheEdit) {
    const owl::TInputDialog dialog(nullptr, kQuestion);
    const auto* prompt = dialog.findChild<QLabel*>();
    EXPECT_EQ(prompt->text(), "&Name:");
    EXPECT_EQ(prompt->textFormat(), Qt::PlainText);
    EXPECT_EQ(prompt->buddy(), dialog.findChild<QLineEdit*>("edit"));
}

TEST(InputDialog, TakesSoManyCharacters) {
    owl::TextQuestion question = kQuestion;
    question.limit = 8;
    owl::TInputDialog dialog(nullptr, question);
    dialog.show();
    FormUser(dialog).Types("edit", "a name too long");
    EXPECT_EQ(dialog.Text(), "a name t");
}

TEST(InputDialog, StaysNarrowWithALongPrompt) {
    owl::TextQuestion question = kQuestion;
    question.prompt = "A name for " + std::string(500, 'x');
    owl::TInputDialog dialog(nullptr, question);
    dialog.show();
    EXPECT_LT(dialog.width(), 600);
}

TEST(InputDialog, AnswersTheTextOnOkAndNothingOnCancel) {
    ModalHand hand;
    hand.Meets<QDialog>([](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("edit")->setText("Größe µ");
        Press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(owl::CurrentModalGateway().AskText(nullptr, kQuestion), "Größe µ");
    hand.Meets<QDialog>([](QDialog& dialog) {
        FormUser(dialog).Types("edit", "");
        Press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(owl::CurrentModalGateway().AskText(nullptr, kQuestion), "");
    hand.Meets<QDialog>([](QDialog& dialog) { Press(dialog, QDialogButtonBox::Cancel); });
    EXPECT_EQ(owl::CurrentModalGateway().AskText(nullptr, kQuestion), std::nullopt);
    hand.Meets<QDialog>([](QDialog& dialog) { FormUser(dialog).PressesEscape(); });
    EXPECT_EQ(owl::CurrentModalGateway().AskText(nullptr, kQuestion), std::nullopt);
}

} // namespace
