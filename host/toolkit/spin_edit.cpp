// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/spin_edit.h"

#include <QLineEdit>
#include <QWheelEvent>

namespace owl {

SpinEdit::SpinEdit(QWidget* parent) : QSpinBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    // Qt's spinner silences its edit when the program sets the number.
    connect(this, &QSpinBox::textChanged, lineEdit(), &QLineEdit::textChanged);
}

void SpinEdit::wheelEvent(QWheelEvent* event) {
    // A page that is scrolled past must not change a setting unseen.
    if (hasFocus()) {
        QSpinBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

QString SpinEdit::EditName() const {
    return lineEdit()->objectName();
}

void SpinEdit::SetEditName(const QString& name) {
    lineEdit()->setObjectName(name);
}

} // namespace owl
