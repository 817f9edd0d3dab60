// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/form.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
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

/// A form of 200 x 200 pixels that scrolls two edits, the second far below the first.
class ScrollingForm final : public owl::TForm {
public:
    explicit ScrollingForm(int contentHeight)
        : TForm(nullptr), area(new QScrollArea(this)), first(new QLineEdit), last(new QLineEdit) {
        auto* contents = new QWidget;
        auto* rows = new QVBoxLayout(contents);
        rows->addWidget(first);
        rows->addStretch();
        rows->addWidget(last);
        contents->setMinimumSize(300, contentHeight);
        area->setWidget(contents);
        area->setWidgetResizable(true);
        (new QVBoxLayout(this))->addWidget(area);
        resize(200, 200);
    }

    QScrollArea* area;
    QLineEdit* first;
    QLineEdit* last;
};

TEST(TForm, OpensLargeEnoughForAllThatItScrolls) {
    ScrollingForm form(500);
    form.show();
    QApplication::processEvents();
    EXPECT_GE(form.area->viewport()->width(), 300);
    EXPECT_GE(form.area->viewport()->height(), 500);
    EXPECT_LT(form.height(), 560);
}

TEST(TForm, ScrollsWhatTheScreenHasNoRoomFor) {
    ScrollingForm form(3000);
    form.show();
    EXPECT_LE(form.frameGeometry().height(), form.screen()->availableSize().height());
    EXPECT_TRUE(form.area->verticalScrollBar()->isVisible());
}

TEST(TForm, ScrollsToWhatGetsTheFocus) {
    ScrollingForm form(3000);
    form.show();
    form.activateWindow();
    QApplication::processEvents();
    form.last->setFocus(Qt::ShortcutFocusReason);
    EXPECT_EQ(form.area->verticalScrollBar()->value(), form.area->verticalScrollBar()->maximum());
    form.first->setFocus(Qt::ShortcutFocusReason);
    EXPECT_LE(form.area->verticalScrollBar()->value(), form.first->y());
}

TEST(TForm, MayGoWithTheFocusInAFrame) {
    {
        SmallForm form;
        auto* frame = new QWidget(&form);
        auto* edit = new QLineEdit(frame);
        form.show();
        form.activateWindow();
        QApplication::processEvents();
        edit->setFocus();
        EXPECT_EQ(QApplication::focusWidget(), edit);
    }
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
}

TEST(TForm, BelongsToItsParent) {
    QWidget parent;
    SmallForm form{HWND(&parent)};
    EXPECT_EQ(form.parentWidget(), &parent);
    EXPECT_EQ(form.GetHandle(), HWND(&form));
}

} // namespace
