// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/row_mark.h"

#include "host/toolkit/icon.h"

#include <QLabel>

namespace orvanta::spectrum_view {

void MarkRow(QLabel* mark, std::initializer_list<QWidget*> edits, MarkKind kind, const QString& remark) {
    for (QWidget* edit : edits) {
        if (edit != nullptr) {
            edit->setToolTip(remark);
            edit->setAccessibleDescription(remark);
        }
    }
    if (mark == nullptr) {
        return;
    }
    mark->setToolTip(remark);
    if (remark.isEmpty()) {
        mark->clear();
        return;
    }
    const QIcon icon = owl::IconOf(QString(kind == MarkKind::Warning ? "warning" : "information"));
    mark->setPixmap(icon.pixmap(mark->minimumSize(), mark->devicePixelRatioF()));
}

} // namespace orvanta::spectrum_view
