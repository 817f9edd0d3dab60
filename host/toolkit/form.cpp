// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/form.h"

#include "host/toolkit/modal_gateway.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QShowEvent>

namespace owl {

namespace {

/// By how much the form is too small for all that it scrolls to be seen at once.
QSize MissingRoom(const QWidget& form) {
    QSize missing(0, 0);
    for (const QScrollArea* area : form.findChildren<QScrollArea*>()) {
        if (area->widget() != nullptr) {
            const int frames = 2 * area->frameWidth();
            const QSize needed = area->widget()->minimumSizeHint().expandedTo(area->widget()->minimumSize());
            missing = missing.expandedTo(needed + QSize(frames, frames) - area->size());
        }
    }
    return missing;
}

/// Qt does so for the Tab key alone. The form may be going, and its other children with it.
void ScrollIntoView(const QWidget& form, QWidget* focused) {
    if (!form.isAncestorOf(focused)) {
        return;
    }
    for (QWidget* around = focused->parentWidget(); around != &form; around = around->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(around)) {
            area->ensureWidgetVisible(focused);
        }
    }
}

} // namespace

TForm::TForm(HWND parent) : QDialog(parent.Widget()) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* focused) { ScrollIntoView(*this, focused); });
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
        // What the controls need is known now that they have their fonts.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        resize((geometry().size() + MissingRoom(*this)).boundedTo(free.size() - border));
        const QSize size = frameGeometry().size();
        // A form larger than the screen still shows its title.
        move(std::max(free.left(), free.center().x() - size.width() / 2),
             std::max(free.top(), free.center().y() - size.height() / 2));
        placed_ = true;
    }
}

} // namespace owl
