// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/form.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QPushButton>
#include <QScreen>
#include <gtest/gtest.h>

namespace {

using orvanta::test::FormUser;
using orvanta::test::ScriptedUser;

/// A form with a button that closes it with OK.
class SmallForm final : public owl::TForm {
public:
    explicit SmallForm(HWND parent = nullptr) : TForm(parent), compute(new QPushButton("&Compute", this)) {
        connect(compute, &QPushButton::clicked, this, &QDialog::accept);
    }
    using TForm::SetCancelButton;

    QPushButton* compute;
};

TEST(TForm, AnswersHowItWasClosed) {
    SmallForm form;
    ScriptedUser user;
    user.MeetsDialog([](QDialog& shown) { shown.accept(); }).MeetsDialog([](QDialog& shown) {
        shown.reject();
    });
    EXPECT_EQ(form.ShowModal(), owl::kIdOk);
    EXPECT_EQ(form.ShowModal(), owl::kIdCancel);
}

TEST(TForm, IsCancelledByEscapeWithoutACancelButton) {
    SmallForm form;
    ScriptedUser user;
    user.MeetsDialog([](QDialog& shown) { FormUser(shown).PressesEscape(); });
    EXPECT_EQ(form.ShowModal(), owl::kIdCancel);
}

TEST(TForm, PressesItsCancelButtonOnEscape) {
    SmallForm form;
    form.SetCancelButton(form.compute);
    ScriptedUser user;
    user.MeetsDialog([](QDialog& shown) { FormUser(shown).PressesEscape(); });
    EXPECT_EQ(form.ShowModal(), owl::kIdOk);
}

TEST(TForm, SwallowsEscapeWhileItsCancelButtonIsDisabled) {
    SmallForm form;
    form.SetCancelButton(form.compute);
    form.compute->setEnabled(false);
    ScriptedUser user;
    user.MeetsDialog([](QDialog& shown) {
        FormUser(shown).PressesEscape();
        EXPECT_TRUE(shown.isVisible());
        shown.close();
    });
    EXPECT_EQ(form.ShowModal(), owl::kIdCancel);
}

TEST(TForm, IsNoLargerThanTheScreen) {
    SmallForm form;
    const QSize free = form.screen()->availableSize();
    form.resize(free * 2);
    form.show();
    EXPECT_LE(form.frameGeometry().width(), free.width());
    EXPECT_LE(form.frameGeometry().height(), free.height());
}

TEST(TForm, StandsAtTheCentreOfTheScreenAndStaysWhereItIsMoved) {
    SmallForm form;
    form.resize(300, 200);
    form.show();
    const QRect free = form.screen()->availableGeometry();
    EXPECT_NEAR(form.frameGeometry().center().x(), free.center().x(), 1);
    EXPECT_NEAR(form.frameGeometry().center().y(), free.center().y(), 1);
    form.move(7, 9);
    form.hide();
    form.show();
    EXPECT_EQ(form.pos(), QPoint(7, 9));
}

TEST(TForm, ShowsItsTitleWhenItIsLargerThanTheScreen) {
    SmallForm form;
    form.setMinimumSize(form.screen()->availableGeometry().size() * 2);
    form.show();
    EXPECT_EQ(form.pos(), form.screen()->availableGeometry().topLeft());
}

TEST(TForm, BelongsToItsParent) {
    QWidget parent;
    SmallForm form{HWND(&parent)};
    EXPECT_EQ(form.parentWidget(), &parent);
    EXPECT_EQ(form.GetHandle(), HWND(&form));
}

} // namespace
