// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/spin_edit.h"

#include <QLineEdit>

namespace owl {

SpinEdit::SpinEdit(QWidget* parent) : QSpinBox(parent) {
    // Qt's spinner silences its edit when the program sets the number.
    connect(this, &QSpinBox::textChanged, lineEdit(), &QLineEdit::textChanged);
}

QString SpinEdit::EditName() const {
    return lineEdit()->objectName();
}

void SpinEdit::SetEditName(const QString& name) {
    lineEdit()->setObjectName(name);
}

} // namespace owl
