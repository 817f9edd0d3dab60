// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/form.h"

#include "host/toolkit/modal_gateway.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QScreen>
#include <QShowEvent>

namespace owl {

TForm::TForm(HWND parent) : QDialog(parent.Widget()) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

int TForm::ShowModal() {
    return CurrentModalGateway().RunModal(*this);
}

void TForm::keyPressEvent(QKeyEvent* event) {
    if (cancelButton_ != nullptr && event->matches(QKeySequence::Cancel)) {
        cancelButton_->click();
        return;
    }
    QDialog::keyPressEvent(event);
}

void TForm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!placed_ && !event->spontaneous()) {
        const QRect free = screen()->availableGeometry();
        const QSize border = frameGeometry().size() - geometry().size();
        resize(geometry().size().boundedTo(free.size() - border));
        const QSize size = frameGeometry().size();
        // A form larger than the screen still shows its title.
        move(std::max(free.left(), free.center().x() - size.width() / 2),
             std::max(free.top(), free.center().y() - size.height() / 2));
        placed_ = true;
    }
}

} // namespace owl
