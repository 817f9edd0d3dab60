// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/qt/form_user.h"

#include "host/toolkit/control_text.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QItemSelection>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTest>
#include <gtest/gtest.h>

namespace orvanta::test {

namespace {

/// The control, or null after a failure.
template <typename Control>
Control* Find(QWidget& form, const char* name) {
    auto* control = form.findChild<Control*>(name);
    if (control == nullptr) {
        ADD_FAILURE() << "no control " << name;
    }
    return control;
}

/// The control when a user could use it, or null after a failure.
template <typename Control>
Control* Usable(QWidget& form, const char* name) {
    auto* control = Find<Control>(form, name);
    if (control != nullptr && !control->isVisible()) {
        ADD_FAILURE() << "the user cannot see " << name;
        return nullptr;
    }
    if (control != nullptr && !control->isEnabled()) {
        ADD_FAILURE() << name << " is disabled";
        return nullptr;
    }
    return control;
}

/// A key of any keyboard; the test library knows only those of ASCII.
void PressKeyOf(QChar character, QWidget& control) {
    if (character == '\n') {
        QTest::keyClick(&control, Qt::Key_Return);
    } else if (character.unicode() < 0x80) {
        QTest::keyClick(&control, character.toLatin1());
    } else {
        QTest::sendKeyEvent(QTest::Click, &control, Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
}

QString CaptionAt(const QAbstractItemView& list, int row) {
    return list.model()->index(row, 0).data().toString();
}

} // namespace

void FormUser::Clicks(const char* button) const {
    if (auto* control = Usable<QAbstractButton>(form_, button)) {
        control->click();
    }
}

void FormUser::DoubleClicksRow(const char* list, int row) const {
    if (auto* view = Usable<QAbstractItemView>(form_, list)) {
        const QModelIndex index = view->model()->index(row, 0);
        ASSERT_TRUE(index.isValid()) << "no row " << row << " in " << list;
        view->scrollTo(index);
        const QPoint at = view->visualRect(index).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
    }
}

void FormUser::Types(const char* edit, const QString& text) const {
    auto* control = Usable<QWidget>(form_, edit);
    if (control == nullptr) {
        return;
    }
    if (const auto* box = qobject_cast<const QComboBox*>(control)) {
        control = box->lineEdit();
    }
    if (qobject_cast<const QLineEdit*>(control) == nullptr &&
        qobject_cast<const QPlainTextEdit*>(control) == nullptr) {
        ADD_FAILURE() << edit << " takes no text";
        return;
    }
    control->setFocus();
    QTest::keyClick(control, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) {
        QTest::keyClick(control, Qt::Key_Delete);
    }
    for (const QChar character : text) {
        PressKeyOf(character, *control);
    }
}

void FormUser::SetsNumber(const char* spinner, int value) const {
    if (auto* control = Usable<QSpinBox>(form_, spinner)) {
        control->setValue(value);
        EXPECT_EQ(control->value(), value) << spinner << " does not take the number";
    }
}

void FormUser::SelectsRows(const char* list, const QStringList& captions) const {
    auto* view = Usable<QAbstractItemView>(form_, list);
    if (view == nullptr) {
        return;
    }
    QStringList missing = captions;
    QItemSelection rows;
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        if (missing.removeOne(CaptionAt(*view, row))) {
            rows.select(view->model()->index(row, 0),
                        view->model()->index(row, view->model()->columnCount() - 1));
        }
    }
    EXPECT_TRUE(missing.isEmpty()) << "no row " << missing.join(", ").toStdString() << " in " << list;
    view->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

void FormUser::SelectsRow(const char* list, int row) const {
    if (auto* view = Usable<QAbstractItemView>(form_, list)) {
        const QModelIndex index = view->model()->index(row, 0);
        ASSERT_TRUE(index.isValid()) << "no row " << row << " in " << list;
        view->scrollTo(index);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
    }
}

void FormUser::PressesEscape() const {
    QTest::keyClick(&form_, Qt::Key_Escape);
}

bool FormUser::IsEnabled(const char* control) const {
    const auto* found = Find<QWidget>(form_, control);
    return found != nullptr && found->isEnabled();
}

bool FormUser::IsVisible(const char* control) const {
    const auto* found = Find<QWidget>(form_, control);
    return found != nullptr && found->isVisible();
}

bool FormUser::IsChecked(const char* button) const {
    const auto* found = Find<QAbstractButton>(form_, button);
    return found != nullptr && found->isChecked();
}

QString FormUser::TextOf(const char* control) const {
    const auto* found = Find<QWidget>(form_, control);
    return found != nullptr ? owl::ControlText(*found) : QString();
}

int FormUser::NumberOf(const char* spinner) const {
    const auto* found = Find<QSpinBox>(form_, spinner);
    return found != nullptr ? found->value() : 0;
}

QStringList FormUser::RowsOf(const char* list) const {
    QStringList captions;
    if (const auto* view = Find<QAbstractItemView>(form_, list)) {
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            captions << CaptionAt(*view, row);
        }
    }
    return captions;
}

QStringList FormUser::SelectedRowsOf(const char* list) const {
    QStringList captions;
    if (const auto* view = Find<QAbstractItemView>(form_, list)) {
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            if (view->selectionModel()->isRowSelected(row, {})) {
                captions << CaptionAt(*view, row);
            }
        }
    }
    return captions;
}

} // namespace orvanta::test
