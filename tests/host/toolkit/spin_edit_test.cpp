// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/spin_edit.h"

#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

TEST(SpinEdit, GivesItsEditANameOfItsOwn) {
    owl::SpinEdit spinner;
    spinner.setObjectName("udOverlap");
    spinner.SetEditName("ebOverlap");
    EXPECT_EQ(spinner.findChild<QLineEdit*>("ebOverlap"), spinner.Edit());
    EXPECT_EQ(spinner.EditName(), "ebOverlap");
}

TEST(SpinEdit, TellsOfItsEditsTextWhoeverChangesIt) {
    owl::SpinEdit spinner;
    QStringList texts;
    QObject::connect(spinner.Edit(), &QLineEdit::textChanged, &spinner,
                     [&texts](const QString& text) { texts << text; });
    spinner.setValue(25);
    EXPECT_EQ(texts, QStringList("25"));
    spinner.setValue(25);
    EXPECT_EQ(texts.size(), 1);
    spinner.Edit()->selectAll();
    QTest::keyClicks(spinner.Edit(), "7");
    EXPECT_EQ(texts.last(), "7");
}

TEST(SpinEdit, IsTurnedByTheWheelOnlyWithTheFocus) {
    QWidget form;
    owl::SpinEdit spinner(&form);
    owl::SpinEdit other(&form);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    const auto turn = [&spinner] {
        const QPointF at = QRectF(spinner.rect()).center();
        QWheelEvent event(at, spinner.mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&spinner, &event);
    };
    other.setFocus();
    turn();
    EXPECT_EQ(spinner.value(), 0);
    spinner.setFocus();
    turn();
    EXPECT_EQ(spinner.value(), 1);
}

} // namespace
