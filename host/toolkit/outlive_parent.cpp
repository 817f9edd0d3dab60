// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/outlive_parent.h"

#include <QDialog>

namespace owl {

void OutliveParent(QDialog& dialog) {
    if (const QWidget* const parent = dialog.parentWidget()) {
        QObject::connect(parent, &QObject::destroyed, &dialog, [&dialog] {
            dialog.reject(); // first: one that has been taken away is hidden, and its loop would not end
            dialog.setParent(nullptr);
        });
    }
}

} // namespace owl
