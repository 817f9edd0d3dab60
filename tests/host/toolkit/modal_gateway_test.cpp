// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/modal_gateway.h"
#include "tests/support/qt/scripted_user.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

#include <memory>

namespace {

/// What was on the screen when the user answered.
struct Seen {
    QString text, caption;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
};

/// Shows a box of the default gateway and answers it with \p button.
int Answer(unsigned type, QMessageBox::StandardButton button, Seen* seen = nullptr, HWND owner = nullptr) {
    QTimer::singleShot(0, [=] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        if (seen != nullptr) {
            *seen = {box->text(), box->windowTitle(), box->icon(), box->standardButtons()};
        }
        EXPECT_EQ(box->parentWidget(), owner.Widget());
        if (button == QMessageBox::NoButton) {
            box->reject();
        } else {
            box->button(button)->click();
        }
    });
    return owl::CurrentModalGateway().ShowMessage(owner, "a <b>text</b>", "Error", type);
}

TEST(ModalGateway, ShowsTextCaptionAndIcon) {
    Seen seen;
    EXPECT_EQ(Answer(owl::kMbIconStop, QMessageBox::Ok, &seen), owl::kIdOk);
    EXPECT_EQ(seen.text, "a <b>text</b>");
    EXPECT_EQ(seen.caption, "Error");
    EXPECT_EQ(seen.icon, QMessageBox::Critical);
    EXPECT_EQ(seen.buttons, QMessageBox::Ok);
}

TEST(ModalGateway, AsksYesOrNo) {
    Seen seen;
    EXPECT_EQ(Answer(owl::kMbYesNo + owl::kMbIconExclamation, QMessageBox::Yes, &seen), owl::kIdYes);
    EXPECT_EQ(seen.icon, QMessageBox::Warning);
    EXPECT_EQ(seen.buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(Answer(owl::kMbYesNo, QMessageBox::No, &seen), owl::kIdNo);
    EXPECT_EQ(seen.icon, QMessageBox::NoIcon);
}

TEST(ModalGateway, TakesAClosedBoxForOkOrNo) {
    EXPECT_EQ(Answer(owl::kMbOk, QMessageBox::NoButton), owl::kIdOk);
    EXPECT_EQ(Answer(owl::kMbYesNo, QMessageBox::NoButton), owl::kIdNo);
}

TEST(ModalGateway, ShowsABoxOverItsOwner) {
    QWidget owner;
    EXPECT_EQ(Answer(owl::kMbOk, QMessageBox::Ok, nullptr, HWND(&owner)), owl::kIdOk);
}

TEST(ModalGateway, HasTheNumbersOfTheMessageBoxTypes) {
    EXPECT_EQ(owl::kMbOk, 0U);
    EXPECT_EQ(owl::kMbYesNo, 4U);
    EXPECT_EQ(owl::kMbIconStop, 16U);
    EXPECT_EQ(owl::kMbIconExclamation, 48U);
    EXPECT_EQ(owl::kMbYesNo + owl::kMbIconExclamation, 52U);
}

TEST(ModalGateway, CancelsADialogWhoseWindowGoesAndLeavesItToItsMaker) {
    auto window = std::make_unique<QWidget>();
    QDialog dialog(window.get());
    QTimer::singleShot(0, &dialog, [&] { window.reset(); });
    EXPECT_EQ(owl::CurrentModalGateway().RunModal(dialog), owl::kIdCancel);
    EXPECT_EQ(dialog.parentWidget(), nullptr);
}

/// Runs a modal whose owner goes while it is open. \return its answer
template <typename Run>
auto WithoutOwner(Run run) {
    auto owner = std::make_unique<QWidget>();
    // Once the modal is there.
    QTimer::singleShot(0, owner.get(), [&] {
        EXPECT_NE(QApplication::activeModalWidget(), nullptr);
        owner.reset();
    });
    const auto answer = run(owl::CurrentModalGateway(), HWND(owner.get()));
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    return answer;
}

TEST(ModalGateway, CancelsEveryModalWhoseOwnerGoes) {
    const auto ask = [](auto question) { return WithoutOwner(question); };
    EXPECT_EQ(
        ask([](auto& user, HWND over) { return user.ShowMessage(over, "it failed", "Error", owl::kMbOk); }),
        owl::kIdOk);
    EXPECT_EQ(ask([](auto& user, HWND over) { return user.ShowMessage(over, "sure?", "?", owl::kMbYesNo); }),
              owl::kIdNo);
    EXPECT_EQ(ask([](auto& user, HWND over) { return user.AskFileToOpen(over, owl::FileQuestion()); }),
              std::nullopt);
    EXPECT_EQ(ask([](auto& user, HWND over) { return user.AskFileToSave(over, owl::FileQuestion()); }),
              std::nullopt);
    EXPECT_EQ(ask([](auto& user, HWND over) { return user.AskColor(over, 0x000080FF); }), std::nullopt);
    EXPECT_EQ(ask([](auto& user, HWND over) { return user.AskFont(over, {"Verdana", 12}); }), std::nullopt);
    EXPECT_EQ(ask([](auto& user, HWND over) { return user.AskText(over, owl::TextQuestion()); }),
              std::nullopt);
}

TEST(ModalGateway, RunsADialogUntilItCloses) {
    QDialog dialog;
    QTimer::singleShot(0, &dialog, &QDialog::accept);
    EXPECT_EQ(owl::CurrentModalGateway().RunModal(dialog), owl::kIdOk);
    QTimer::singleShot(0, &dialog, &QDialog::reject);
    EXPECT_EQ(owl::CurrentModalGateway().RunModal(dialog), owl::kIdCancel);
}

TEST(ModalGateway, IsReplacedForAWhile) {
    owl::ModalGateway* standard = &owl::CurrentModalGateway();
    {
        orvanta::test::ScriptedUser user;
        user.AnswersMessage(owl::kIdYes);
        EXPECT_EQ(owl::CurrentModalGateway().ShowMessage(nullptr, "sure?", "Warning", 52), owl::kIdYes);
        const orvanta::test::ScriptedUser::Message expected{nullptr, "sure?", "Warning", 52};
        ASSERT_EQ(user.Messages().size(), 1U);
        EXPECT_EQ(user.Messages().front(), expected);
    }
    EXPECT_EQ(&owl::CurrentModalGateway(), standard);
}

} // namespace
